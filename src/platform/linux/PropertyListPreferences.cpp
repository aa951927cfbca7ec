#include "platform/linux/PropertyListPreferences.h"

#include <QHashFunctions>
#include <QStandardPaths>

#include <cerrno>
#include <chrono>
#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

/// Far above what a person's shortcuts take (a hundred thousand of them: some 40 MB).
constexpr qint64 maximumFileSize = 256LL * 1024 * 1024;
/// For another process that is writing. One that was stopped meanwhile never lets go.
constexpr std::chrono::milliseconds lockPatience{1000};

Preferences::SaveProblem problemOf(int error)
{
    switch (error) {
    case 0:
        return Preferences::SaveProblem::None;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return Preferences::SaveProblem::NoRoom;
    case EACCES:
    case EPERM:
    case EROFS:
        return Preferences::SaveProblem::NotPermitted;
    default:
        return Preferences::SaveProblem::Other;
    }
}

} // namespace

PropertyListPreferences::PropertyListPreferences(const QString &path)
    : m_file(path)
{
    m_file.removeLeftovers();
    if (takeUp() == Found::Damaged) {
        // Looked at once more behind the lock: another process may be putting it right.
        const auto lock = m_file.lock(lockPatience);
        if (lock && takeUp() == Found::Damaged)
            m_wasSeen = m_file.moveAside();
    }
    m_hasNews = false; // nobody knows any other values
}

PropertyListPreferences::Fingerprint PropertyListPreferences::fingerprintOf(const QByteArray &bytes)
{
    return {bytes.size(), qHashBits(bytes.constData(), static_cast<std::size_t>(bytes.size()))};
}

QString PropertyListPreferences::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/hmatnik/cz.hmatnik.Hmatnik.plist"_s;
}

QVariant PropertyListPreferences::value(const QString &key) const
{
    return m_list.value(key);
}

bool PropertyListPreferences::setValue(const QString &key, const QVariant &value)
{
    if (!m_list.setValue(key, value))
        return false;
    m_changed.insert(key);
    return store();
}

bool PropertyListPreferences::removeValue(const QString &key)
{
    // A value that nobody has seen yet is not what is meant.
    if (!m_list.contains(key) && !m_changed.contains(key))
        return true;
    m_list.remove(key);
    m_changed.insert(key);
    return store();
}

void PropertyListPreferences::refresh()
{
    // A damaged file is left to the next change, which has the lock.
    takeUp();
    tellNews();
}

Subscription PropertyListPreferences::onRefresh(std::function<void()> handler)
{
    return m_refreshHandlers.add(std::move(handler));
}

void PropertyListPreferences::setMerge(Merge merge)
{
    m_merge = std::move(merge);
}

bool PropertyListPreferences::save()
{
    return m_changed.isEmpty() || store();
}

Subscription PropertyListPreferences::onSaveProblem(std::function<void()> handler)
{
    return m_problemHandlers.add(std::move(handler));
}

bool PropertyListPreferences::store()
{
    const SaveProblem before = std::exchange(m_problem, write());
    tellNews();
    if (m_problem != before)
        m_problemHandlers.call();
    return m_problem == SaveProblem::None;
}

void PropertyListPreferences::tellNews()
{
    if (std::exchange(m_hasNews, false))
        m_refreshHandlers.call();
}

/// Reads what stands on the disk, and lays the changes over it that are not there yet.
PropertyListPreferences::Found PropertyListPreferences::takeUp()
{
    const DurableFile::Contents contents = m_file.read(maximumFileSize);
    switch (contents.status) {
    case DurableFile::Status::Missing:
        m_wasSeen = true;
        return Found::Taken;
    case DurableFile::Status::Unavailable:
        return Found::Unavailable;
    case DurableFile::Status::Unreadable:
        return Found::Damaged;
    case DurableFile::Status::Read:
        break;
    }
    const Fingerprint fingerprint = fingerprintOf(contents.bytes);
    if (m_known == fingerprint)
        return Found::Taken;
    auto stored = PropertyList::fromXml(contents.bytes);
    if (!stored)
        return Found::Damaged;
    if (!m_wasSeen && !mergeUnseen(*stored, contents.bytes))
        return Found::Unavailable;
    for (const QString &key : std::as_const(m_changed))
        stored->copyEntry(key, m_list);
    m_list = std::move(*stored);
    m_known = fingerprint;
    m_wasSeen = true;
    m_hasNews = true;
    return Found::Taken;
}

/// Merges what was changed before the stored values could be read, and keeps those in a copy. False
/// if the copy can't be made.
bool PropertyListPreferences::mergeUnseen(const PropertyList &stored, const QByteArray &bytes)
{
    QList<QString> inBoth;
    for (const QString &key : std::as_const(m_changed)) {
        if (stored.contains(key) && stored.value(key) != m_list.value(key))
            inBoth.append(key);
    }
    if (inBoth.isEmpty())
        return true;
    if (!m_file.keepBeside(bytes))
        return false;
    for (const QString &key : std::as_const(inBoth)) {
        if (m_merge && m_list.contains(key))
            m_list.setValue(key, m_merge(key, stored.value(key), m_list.value(key)));
    }
    return true;
}

/// Writes the changes onto what is on the disk now.
Preferences::SaveProblem PropertyListPreferences::write()
{
    const auto lock = m_file.lock(m_isLockStuck ? std::chrono::milliseconds(0) : lockPatience);
    m_isLockStuck = !lock;
    if (!lock)
        return SaveProblem::Busy;
    switch (takeUp()) {
    case Found::Taken:
        break;
    case Found::Damaged:
        if (!m_file.moveAside())
            return SaveProblem::NotPermitted;
        m_wasSeen = true;
        break;
    case Found::Unavailable:
        return SaveProblem::Other;
    }
    const QByteArray xml = m_list.toXml();
    // A larger file would count as foreign at the next start.
    if (xml.isEmpty() || xml.size() > maximumFileSize)
        return SaveProblem::Other;
    if (const int error = m_file.write(xml))
        return problemOf(error);
    m_known = fingerprintOf(xml);
    m_changed.clear();
    return SaveProblem::None;
}

} // namespace hmatnik::platform
