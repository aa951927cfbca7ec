#include "platform/linux/DurableFile.h"

#include <QDateTime>
#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <thread>
#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumLinks = 40; // as many as the kernel follows
constexpr int maximumAsideNames = 10000;
/// How often somebody else's lock is tried while it is waited for.
constexpr std::chrono::milliseconds lockInterval{5};
/// A temporary file older than this belongs to nobody any more.
constexpr time_t leftoverAgeSeconds = 60;

/// A file descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    explicit operator bool() const { return m_number >= 0; }
    int number() const { return m_number; }

private:
    int m_number;
};

QByteArray folderOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    if (slash < 0)
        return "."_ba;
    return slash == 0 ? "/"_ba : path.left(slash);
}

QByteArray nameOf(const QByteArray &path)
{
    return path.mid(path.lastIndexOf('/') + 1);
}

/// Where a write goes: the end of a chain of symbolic links, even if there is nothing there.
QByteArray target(QByteArray path)
{
    QByteArray start = path;
    for (int i = 0; i < maximumLinks; ++i) {
        QByteArray link(4096, '\0');
        const ssize_t length =
            ::readlink(path.constData(), link.data(), static_cast<size_t>(link.size()));
        if (length < 0)
            return path;
        link.truncate(length);
        path = link.startsWith('/') ? link : folderOf(path) + '/' + link;
    }
    return start; // a circle: the link itself is what stands in the way
}

QByteArray temporaryPrefix(const QByteArray &path)
{
    return '.' + nameOf(path) + ".new-";
}

bool writeAll(int descriptor, const QByteArray &bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(
            descriptor, bytes.constData() + written, static_cast<size_t>(bytes.size() - written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        written += count;
    }
    return true;
}

/// Makes names created in the folder survive a power loss.
bool syncFolder(const QByteArray &folder)
{
    const Descriptor descriptor(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor)
        return false;
    // Some file systems have nothing to do here and say so.
    return ::fsync(descriptor.number()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

bool makeFolder(const QByteArray &folder) // NOLINT(misc-no-recursion): as deep as the path
{
    if (::mkdir(folder.constData(), 0700) == 0)
        return syncFolder(folderOf(folder));
    if (errno == ENOENT && folderOf(folder) != folder)
        return makeFolder(folderOf(folder)) && makeFolder(folder);
    struct stat status = {};
    const int error = errno;
    if (::stat(folder.constData(), &status) != 0) {
        errno = error;
        return false;
    }
    if (S_ISDIR(status.st_mode))
        return true;
    errno = ENOTDIR;
    return false;
}

/// Whether the system is short of something, or a disk on the network can't be reached.
bool isPassing(int error)
{
    constexpr std::array passing{EMFILE,   ENFILE,      ENOMEM,   EINTR,     EAGAIN,
                                 ESTALE,   ETIMEDOUT,   ENOTCONN, EHOSTDOWN, EHOSTUNREACH,
                                 ENETDOWN, ENETUNREACH, ENOKEY};
    return std::find(passing.begin(), passing.end(), error) != passing.end();
}

/// Whether whoever wrote the temporary file has gone.
bool isLeftover(int folder, const char *name)
{
    struct stat status = {};
    if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(status.st_mode))
        return false;
    if (::time(nullptr) - status.st_mtime > leftoverAgeSeconds)
        return true;
    // Its writer holds a lock on it from before the first byte until it has the final name.
    if (status.st_size == 0)
        return false;
    const Descriptor descriptor(::openat(folder, name, O_RDWR | O_CLOEXEC | O_NOFOLLOW));
    return descriptor && ::flock(descriptor.number(), LOCK_EX | LOCK_NB) == 0;
}

/// Renames without ever replacing what may stand under the new name.
bool renameToUnused(const QByteArray &from, const QByteArray &to)
{
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // This file system can't promise it in one step; looking first is the next best.
    struct stat status = {};
    if (::lstat(to.constData(), &status) == 0) {
        errno = EEXIST;
        return false;
    }
    return ::rename(from.constData(), to.constData()) == 0;
}

/// Gives a file a name that nothing has yet: the beginning and the time.
bool giveUnusedName(const QByteArray &from, const QByteArray &beginning)
{
    const QByteArray stem =
        beginning + '-' + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss").toLatin1();
    for (int i = 1; i <= maximumAsideNames; ++i) {
        const QByteArray name = i == 1 ? stem : stem + '-' + QByteArray::number(i);
        if (renameToUnused(from, name)) {
            syncFolder(folderOf(from));
            return true;
        }
        if (errno != EEXIST)
            return false;
    }
    return false;
}

/// Writes a new file in the folder of the path, has it named once it is on the disk, and makes the
/// name last. Gives 0 or an error number; the file is gone again if it got no name.
template <typename Name>
int writeBeside(const QByteArray &path, const QByteArray &bytes, Name name)
{
    const QByteArray folder = folderOf(path);
    if (!makeFolder(folder))
        return errno;
    QByteArray temporary = folder + '/' + temporaryPrefix(path) + "XXXXXX";
    const Descriptor descriptor(::mkostemp(temporary.data(), O_CLOEXEC)); // mode 0600
    if (!descriptor)
        return errno;
    // Held until the file has its final name, so that nobody takes it for a leftover. Where files
    // can't be locked, its age alone keeps it.
    ::flock(descriptor.number(), LOCK_EX | LOCK_NB);
    if (!writeAll(descriptor.number(), bytes) || ::fsync(descriptor.number()) != 0 ||
        !name(temporary)) {
        const int error = errno;
        ::unlink(temporary.constData());
        return error;
    }
    return syncFolder(folder) ? 0 : errno;
}

} // namespace

DurableFile::Lock::Lock(int descriptor)
    : m_descriptor(descriptor)
{
}

DurableFile::Lock::Lock(Lock &&other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
{
}

DurableFile::Lock::~Lock()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

DurableFile::DurableFile(const QString &path)
    : m_path(QFile::encodeName(path))
{
}

DurableFile::Contents DurableFile::read(qint64 limit) const
{
    // Without O_NONBLOCK, a pipe under the name would wait for a writer.
    Descriptor descriptor(::open(m_path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!descriptor) {
        if (errno == ENOENT)
            return {Status::Missing, {}};
        return {isPassing(errno) ? Status::Unavailable : Status::Unreadable, {}};
    }
    struct stat status = {};
    if (::fstat(descriptor.number(), &status) != 0)
        return {Status::Unavailable, {}};
    if (!S_ISREG(status.st_mode) || status.st_size > limit)
        return {Status::Unreadable, {}};

    QByteArray bytes(static_cast<qsizetype>(status.st_size), '\0');
    qsizetype filled = 0;
    while (filled < bytes.size()) {
        const ssize_t count = ::read(
            descriptor.number(), bytes.data() + filled, static_cast<size_t>(bytes.size() - filled));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return {isPassing(errno) ? Status::Unavailable : Status::Unreadable, {}};
        if (count == 0)
            break;
        filled += count;
    }
    bytes.truncate(filled);
    return {Status::Read, bytes};
}

std::optional<DurableFile::Lock> DurableFile::lock(std::chrono::milliseconds patience) const
{
    const QByteArray path = target(m_path);
    makeFolder(folderOf(path));
    const QByteArray name = folderOf(path) + "/." + nameOf(path) + ".lock";
    // Open for writing, which locks over a network ask for.
    const int descriptor = ::open(
        name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0600);
    Lock lock(descriptor);
    if (descriptor < 0)
        return lock;
    const auto end = std::chrono::steady_clock::now() + patience;
    while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return lock;
        if (std::chrono::steady_clock::now() >= end)
            return std::nullopt;
        std::this_thread::sleep_for(lockInterval);
    }
    return lock;
}

int DurableFile::write(const QByteArray &bytes) const
{
    const QByteArray path = target(m_path);
    return writeBeside(path, bytes, [&](const QByteArray &temporary) {
        return ::rename(temporary.constData(), path.constData()) == 0;
    });
}

bool DurableFile::keepBeside(const QByteArray &bytes) const
{
    const QByteArray path = target(m_path);
    return writeBeside(path, bytes, [&](const QByteArray &temporary) {
               return giveUnusedName(temporary, path + ".before-merge");
           }) == 0;
}

bool DurableFile::moveAside() const
{
    const QByteArray path = target(m_path);
    return giveUnusedName(path, path + ".damaged");
}

void DurableFile::removeLeftovers() const
{
    const QByteArray path = target(m_path);
    const QByteArray prefix = temporaryPrefix(path);
    DIR *folder = ::opendir(folderOf(path).constData());
    if (!folder)
        return;
    while (const dirent *entry = ::readdir(folder)) {
        if (qstrncmp(entry->d_name, prefix.constData(), static_cast<size_t>(prefix.size())) == 0 &&
            isLeftover(::dirfd(folder), entry->d_name))
            ::unlinkat(::dirfd(folder), entry->d_name, 0);
    }
    ::closedir(folder);
}

} // namespace hmatnik::platform
