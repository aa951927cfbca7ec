#include "platform/linux/PropertyListPreferences.h"

#include "OrdinaryUser.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>
#include <optional>
#include <random>
#include <thread>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

namespace {

const QString fileName = u"cz.hmatnik.Hmatnik.plist"_s;
const QString lockName = u".cz.hmatnik.Hmatnik.plist.lock"_s;

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void create(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

/// While it exists, the process can't make any file longer than the limit: the same short writes
/// and errors as on a full disk, for root too.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        m_previousHandler = std::signal(SIGXFSZ, SIG_IGN); // NOLINT(performance-no-int-to-ptr)
        ::getrlimit(RLIMIT_FSIZE, &m_previous);
        const rlimit limit{bytes, m_previous.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_previous);
        std::signal(SIGXFSZ, m_previousHandler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_previous = {};
    void (*m_previousHandler)(int) = nullptr;
};

/// While it exists, the process can open nothing more.
class NoMoreDescriptors
{
public:
    NoMoreDescriptors()
    {
        ::getrlimit(RLIMIT_NOFILE, &m_previous);
        const rlimit limit{0, m_previous.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~NoMoreDescriptors() { ::setrlimit(RLIMIT_NOFILE, &m_previous); }
    NoMoreDescriptors(const NoMoreDescriptors &) = delete;
    NoMoreDescriptors &operator=(const NoMoreDescriptors &) = delete;

private:
    rlimit m_previous = {};
};

} // namespace

class PropertyListPreferencesTest : public testing::Test
{
protected:
    QStringList damagedFiles(const QString &folder) const
    {
        return QDir(folder).entryList(
            {fileName + u".damaged-*"_s}, QDir::AllEntries | QDir::System);
    }
    /// All but the file that is locked, which stays.
    QStringList allFiles(const QString &folder) const
    {
        QStringList names = QDir(folder).entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        names.removeAll(lockName);
        return names;
    }
    QStringList filesFromBeforeAMerge() const
    {
        return QDir(m_folder.path()).entryList({fileName + u".before-merge-*"_s});
    }
    int lockedByAnother() const
    {
        const int file = ::open(
            m_folder.filePath(lockName).toUtf8().constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        EXPECT_EQ(::flock(file, LOCK_EX | LOCK_NB), 0);
        return file;
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(fileName);
};

TEST_F(PropertyListPreferencesTest, StandsInTheConfigurationFolder)
{
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    EXPECT_EQ(PropertyListPreferences::defaultPath(), m_folder.filePath(u"hmatnik/"_s + fileName));
    qputenv("XDG_CONFIG_HOME", before);
}

TEST_F(PropertyListPreferencesTest, StartsEmptyAndWritesNothingBeforeAChange)
{
    const PropertyListPreferences preferences(m_folder.filePath(u"new/"_s + fileName));
    EXPECT_FALSE(preferences.value(u"favorites"_s).isValid());
    EXPECT_TRUE(allFiles(m_folder.path()).isEmpty());
}

TEST_F(PropertyListPreferencesTest, AChangeIsOnDiskWhenItReturns)
{
    const QString path = m_folder.filePath(u"one/two/"_s + fileName);
    PropertyListPreferences preferences(path);
    const QVariantList favorites{u"copy"_s, u"paste"_s};
    ASSERT_TRUE(preferences.setValue(u"favorites"_s, favorites));
    ASSERT_TRUE(preferences.setValue(u"smartSuggestions"_s, false));
    const PropertyListPreferences again(path);
    EXPECT_EQ(again.value(u"favorites"_s), QVariant(favorites));
    EXPECT_EQ(again.value(u"smartSuggestions"_s), QVariant(false));
    EXPECT_EQ(allFiles(QFileInfo(path).path()), QStringList{fileName});
    EXPECT_EQ(
        QFile::permissions(path) & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther),
        QFile::Permissions());
}

TEST_F(PropertyListPreferencesTest, StoresNothingOfAnotherType)
{
    PropertyListPreferences preferences(m_path);
    EXPECT_FALSE(preferences.setValue(u"key"_s, QVariant(QStringList{u"a"_s})));
    EXPECT_FALSE(preferences.value(u"key"_s).isValid());
    EXPECT_FALSE(QFile::exists(m_path));
}

TEST_F(PropertyListPreferencesTest, ARemovalIsOnDiskWhenItReturns)
{
    PropertyListPreferences preferences(m_path);
    EXPECT_TRUE(preferences.removeValue(u"a"_s));
    EXPECT_FALSE(QFile::exists(m_path));
    ASSERT_TRUE(preferences.setValue(u"a"_s, true));
    ASSERT_TRUE(preferences.setValue(u"b"_s, true));
    EXPECT_TRUE(preferences.removeValue(u"a"_s));
    EXPECT_FALSE(preferences.value(u"a"_s).isValid());
    EXPECT_FALSE(PropertyListPreferences(m_path).value(u"a"_s).isValid());
    EXPECT_EQ(PropertyListPreferences(m_path).value(u"b"_s), QVariant(true));
    {
        const FileSizeLimit full(64);
        EXPECT_FALSE(preferences.removeValue(u"b"_s));
    }
    EXPECT_TRUE(preferences.removeValue(u"b"_s)) << "what failed is tried again";
    EXPECT_FALSE(PropertyListPreferences(m_path).value(u"b"_s).isValid());
}

TEST_F(PropertyListPreferencesTest, ControlCharactersSurvive)
{
    const QString text = QString(QChar(0)) + u"a\u0001\u001b\r\n\uffff"_s + QChar(0xD800);
    PropertyListPreferences preferences(m_path);
    ASSERT_TRUE(preferences.setValue(u"other"_s, true));
    ASSERT_TRUE(preferences.setValue(u"favorites"_s, QVariantList{text}));
    ASSERT_TRUE(preferences.setValue(text, text));
    const PropertyListPreferences again(m_path);
    EXPECT_EQ(again.value(u"favorites"_s), QVariant(QVariantList{text}));
    EXPECT_EQ(again.value(text), QVariant(text));
    EXPECT_EQ(again.value(u"other"_s), QVariant(true));
    EXPECT_TRUE(damagedFiles(m_folder.path()).isEmpty());
}

TEST_F(PropertyListPreferencesTest, FollowsASymbolicLink)
{
    const QString elsewhere = m_folder.filePath(u"elsewhere"_s);
    ASSERT_TRUE(QDir().mkpath(elsewhere));
    ASSERT_TRUE(QFile::link(u"elsewhere/real.plist"_s, m_path));
    {
        PropertyListPreferences preferences(m_path); // the link leads to nothing yet
        ASSERT_TRUE(preferences.setValue(u"a"_s, true));
    }
    PropertyListPreferences preferences(m_path);
    EXPECT_EQ(preferences.value(u"a"_s), QVariant(true));
    ASSERT_TRUE(preferences.setValue(u"b"_s, true));
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    EXPECT_TRUE(contents(elsewhere + u"/real.plist"_s).contains("<key>b</key>"));
}

TEST_F(PropertyListPreferencesTest, MovesDamagedFilesAsideAndKeepsThemAll)
{
    const QList<QByteArray> damaged{
        ""_ba, "<plist version=\"1.0\"><dict><key>a</key>"_ba, "bplist00rest"_ba, "\x89PNG\r\n"_ba,
        "<plist version=\"1.0\"><array/></plist>"_ba};
    for (const QByteArray &bytes : damaged) {
        create(m_path, bytes);
        PropertyListPreferences preferences(m_path);
        EXPECT_FALSE(preferences.value(u"a"_s).isValid());
        EXPECT_FALSE(QFile::exists(m_path));
        EXPECT_TRUE(preferences.setValue(u"a"_s, true));
    }
    QList<QByteArray> kept;
    for (const QString &name : damagedFiles(m_folder.path()))
        kept.append(contents(m_folder.filePath(name)));
    EXPECT_EQ(kept.size(), damaged.size());
    for (const QByteArray &bytes : damaged)
        EXPECT_TRUE(kept.contains(bytes));
}

TEST_F(PropertyListPreferencesTest, MovesADamagedFileAsideWhereTheLinkLeads)
{
    create(m_folder.filePath(u"real.plist"_s), "garbled"_ba);
    ASSERT_TRUE(QFile::link(u"real.plist"_s, m_path));
    PropertyListPreferences preferences(m_path);
    EXPECT_TRUE(preferences.setValue(u"a"_s, true));
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    const QStringList aside = QDir(m_folder.path()).entryList({u"real.plist.damaged-*"_s});
    ASSERT_EQ(aside.size(), 1);
    EXPECT_EQ(contents(m_folder.filePath(aside.first())), "garbled"_ba);
}

TEST_F(PropertyListPreferencesTest, MovesAsideWhatIsNoFile)
{
    ASSERT_TRUE(QDir().mkpath(m_path + u"/inside"_s));
    {
        PropertyListPreferences preferences(m_path);
        EXPECT_TRUE(preferences.setValue(u"a"_s, true));
    }
    ASSERT_TRUE(QFile::remove(m_path));
    ASSERT_EQ(::mkfifo(m_path.toUtf8().constData(), 0600), 0);
    {
        PropertyListPreferences preferences(m_path); // would hang here if it waited for a writer
        EXPECT_TRUE(preferences.setValue(u"a"_s, true));
    }
    ASSERT_TRUE(QFile::remove(m_path));
    ASSERT_TRUE(QFile::link(fileName, m_path)); // a circle
    PropertyListPreferences preferences(m_path);
    EXPECT_TRUE(preferences.setValue(u"a"_s, true));
    EXPECT_EQ(PropertyListPreferences(m_path).value(u"a"_s), QVariant(true));
    EXPECT_EQ(damagedFiles(m_folder.path()).size(), 3);
}

TEST_F(PropertyListPreferencesTest, AnUnreadableFileIsMovedAside)
{
    const test::OrdinaryUser user(m_folder.path());
    ASSERT_TRUE(user.isInForce());
    create(m_path, "secret"_ba);
    ASSERT_TRUE(QFile::setPermissions(m_path, QFile::Permissions()));
    PropertyListPreferences preferences(m_path);
    EXPECT_TRUE(preferences.setValue(u"a"_s, true));
    const QStringList aside = damagedFiles(m_folder.path());
    ASSERT_EQ(aside.size(), 1);
    const QString asidePath = m_folder.filePath(aside.first());
    ASSERT_TRUE(QFile::setPermissions(asidePath, QFile::ReadOwner));
    EXPECT_EQ(contents(asidePath), "secret"_ba);
}

TEST_F(PropertyListPreferencesTest, WhatCanNeitherBeReadNorMovedIsNeverReplaced)
{
    const test::OrdinaryUser user(m_folder.path());
    ASSERT_TRUE(user.isInForce());
    PropertyListPreferences(m_path).setValue(u"stored"_s, u"old"_s);
    PropertyListPreferences(m_path).setValue(u"both"_s, u"old"_s);
    PropertyListPreferences(m_path).setValue(u"unseen"_s, u"old"_s);
    const QByteArray before = contents(m_path);
    ASSERT_TRUE(QFile::setPermissions(m_path, QFile::Permissions()));
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::ExeOwner));

    PropertyListPreferences preferences(m_path);
    EXPECT_FALSE(preferences.setValue(u"both"_s, u"new"_s));
    EXPECT_EQ(preferences.value(u"both"_s), QVariant(u"new"_s));
    EXPECT_EQ(preferences.saveProblem(), Preferences::SaveProblem::NotPermitted);
    EXPECT_TRUE(preferences.removeValue(u"unseen"_s)) << "as far as anybody knows, it is not there";

    // The folder can be written again and the file be read: nothing of either is lost.
    ASSERT_TRUE(QFile::setPermissions(
        m_folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    ASSERT_TRUE(QFile::setPermissions(m_path, QFile::ReadOwner));
    EXPECT_EQ(contents(m_path), before);
    EXPECT_TRUE(preferences.setValue(u"more"_s, true));
    const PropertyListPreferences again(m_path);
    EXPECT_EQ(again.value(u"stored"_s), QVariant(u"old"_s));
    EXPECT_EQ(again.value(u"both"_s), QVariant(u"new"_s));
    EXPECT_EQ(again.value(u"more"_s), QVariant(true));
    EXPECT_EQ(again.value(u"unseen"_s), QVariant(u"old"_s));
    const QStringList kept = filesFromBeforeAMerge();
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(contents(m_folder.filePath(kept.first())), before);
}

TEST_F(PropertyListPreferencesTest, AReadOnlyFolderLosesNothing)
{
    const test::OrdinaryUser user(m_folder.path());
    ASSERT_TRUE(user.isInForce());
    PropertyListPreferences preferences(m_path);
    ASSERT_TRUE(preferences.setValue(u"a"_s, qint64(1)));
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_FALSE(preferences.setValue(u"a"_s, qint64(2)));
    EXPECT_FALSE(preferences.setValue(u"b"_s, qint64(3)));
    EXPECT_EQ(preferences.saveProblem(), Preferences::SaveProblem::NotPermitted);
    EXPECT_EQ(preferences.value(u"a"_s), QVariant(qint64(2)));
    EXPECT_EQ(PropertyListPreferences(m_path).value(u"a"_s), QVariant(qint64(1)));
    ASSERT_TRUE(QFile::setPermissions(
        m_folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_TRUE(preferences.setValue(u"c"_s, qint64(4)));
    const PropertyListPreferences again(m_path);
    EXPECT_EQ(again.value(u"a"_s), QVariant(qint64(2)));
    EXPECT_EQ(again.value(u"b"_s), QVariant(qint64(3)));
    EXPECT_EQ(again.value(u"c"_s), QVariant(qint64(4)));
}

TEST_F(PropertyListPreferencesTest, AFolderThatCannotBeMadeLosesNothing)
{
    const QString inTheWay = m_folder.filePath(u"hmatnik"_s);
    create(inTheWay, "a file where the folder should be"_ba);
    const QString path = inTheWay + u'/' + fileName;
    PropertyListPreferences preferences(path);
    EXPECT_FALSE(preferences.setValue(u"a"_s, true));
    EXPECT_EQ(contents(inTheWay), "a file where the folder should be"_ba);
    ASSERT_TRUE(QFile::remove(inTheWay));
    EXPECT_TRUE(preferences.setValue(u"b"_s, true));
    EXPECT_EQ(PropertyListPreferences(path).value(u"a"_s), QVariant(true));
}

TEST_F(PropertyListPreferencesTest, AFullDiskLosesNothing)
{
    PropertyListPreferences preferences(m_path);
    ASSERT_TRUE(preferences.setValue(u"a"_s, u"old"_s));
    const QByteArray before = contents(m_path);
    {
        const FileSizeLimit full(64);
        EXPECT_FALSE(preferences.setValue(u"a"_s, u"new"_s));
        EXPECT_FALSE(preferences.setValue(u"big"_s, QByteArray(100000, 'x')));
    }
    EXPECT_EQ(contents(m_path), before);
    EXPECT_EQ(allFiles(m_folder.path()), QStringList{fileName});
    EXPECT_EQ(preferences.value(u"a"_s), QVariant(u"new"_s));
    EXPECT_TRUE(preferences.setValue(u"b"_s, true));
    const PropertyListPreferences again(m_path);
    EXPECT_EQ(again.value(u"a"_s), QVariant(u"new"_s));
    EXPECT_EQ(again.value(u"big"_s), QVariant(QByteArray(100000, 'x')));
}

TEST_F(PropertyListPreferencesTest, ClearsAwayOnlyLeftovers)
{
    const auto temporary = [this](const QString &letters) {
        return m_folder.filePath(u'.' + fileName + u".new-"_s + letters);
    };
    const QString old = temporary(u"abcdef"_s);
    const QString abandoned = temporary(u"ghijkl"_s);
    const QString justMade = temporary(u"mnopqr"_s);
    const QString inUse = temporary(u"stuvwx"_s);
    const QString other = m_folder.filePath(u"other"_s);
    for (const QString &path : {abandoned, inUse, other})
        create(path, "x"_ba);
    for (const QString &path : {old, justMade})
        create(path, {});
    const timeval longAgo[2] = {{1000, 0}, {1000, 0}};
    ASSERT_EQ(::utimes(old.toUtf8().constData(), longAgo), 0);
    ASSERT_EQ(::utimes(other.toUtf8().constData(), longAgo), 0);
    const int writer = ::open(inUse.toUtf8().constData(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(writer, LOCK_EX | LOCK_NB), 0);
    {
        const PropertyListPreferences preferences(m_path);
        EXPECT_FALSE(QFile::exists(old));
        EXPECT_FALSE(QFile::exists(abandoned)) << "nobody holds it any more";
        EXPECT_TRUE(QFile::exists(justMade)) << "its writer may be about to lock it";
        EXPECT_TRUE(QFile::exists(inUse));
        EXPECT_TRUE(QFile::exists(other));
    }
    ::close(writer);
    const PropertyListPreferences preferences(m_path);
    EXPECT_FALSE(QFile::exists(inUse));
}

TEST_F(PropertyListPreferencesTest, TwoProcessesKeepEachOthersChanges)
{
    PropertyListPreferences first(m_path);
    PropertyListPreferences second(m_path);
    ASSERT_TRUE(first.setValue(u"shared"_s, u"first"_s));
    ASSERT_TRUE(second.setValue(u"customShortcuts"_s, "[1]"_ba));
    ASSERT_TRUE(first.setValue(u"favorites"_s, QVariantList{u"copy"_s}));
    ASSERT_TRUE(second.setValue(u"shared"_s, u"second"_s));
    ASSERT_TRUE(first.removeValue(u"favorites"_s));
    const PropertyListPreferences again(m_path);
    EXPECT_EQ(again.value(u"customShortcuts"_s), QVariant("[1]"_ba));
    EXPECT_EQ(again.value(u"shared"_s), QVariant(u"second"_s));
    EXPECT_FALSE(again.value(u"favorites"_s).isValid());
}

TEST_F(PropertyListPreferencesTest, WhatAnotherProcessRemovedStaysAway)
{
    PropertyListPreferences first(m_path);
    ASSERT_TRUE(first.setValue(u"a"_s, true));
    PropertyListPreferences second(m_path);
    ASSERT_TRUE(first.removeValue(u"a"_s));
    ASSERT_TRUE(second.setValue(u"b"_s, true));
    EXPECT_FALSE(PropertyListPreferences(m_path).value(u"a"_s).isValid());
    EXPECT_FALSE(second.value(u"a"_s).isValid());
}

TEST_F(PropertyListPreferencesTest, TwoProcessesThatChangeThingsAtOnceLoseNothing)
{
    constexpr int changes = 100;
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    PropertyListPreferences preferences(m_path);
    for (int i = 0; i < changes; ++i)
        preferences.setValue((child == 0 ? u"child %1"_s : u"parent %1"_s).arg(i), true);
    // One that writes without a pause can keep the lock from the other for a while.
    for (int i = 0; i < changes && !preferences.save(); ++i)
        ::usleep(100000);
    if (child == 0)
        ::_exit(preferences.saveProblem() == Preferences::SaveProblem::None ? 0 : 1);
    EXPECT_EQ(preferences.saveProblem(), Preferences::SaveProblem::None);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    const PropertyListPreferences again(m_path);
    for (int i = 0; i < changes; ++i) {
        EXPECT_TRUE(again.value(u"child %1"_s.arg(i)).isValid()) << i;
        EXPECT_TRUE(again.value(u"parent %1"_s.arg(i)).isValid()) << i;
    }
}

TEST_F(PropertyListPreferencesTest, TakesUpWhatAnotherProcessStored)
{
    PropertyListPreferences first(m_path);
    ASSERT_TRUE(first.setValue(u"a"_s, qint64(1)));
    PropertyListPreferences second(m_path);
    int news = 0;
    const auto subscription = first.onRefresh([&] { ++news; });
    first.refresh();
    EXPECT_EQ(news, 0) << "nothing but its own change";
    {
        const auto other = second.onRefresh([&] { ++news; });
        second.refresh();
        EXPECT_EQ(news, 0) << "nothing that was not there at its start";
    }
    ASSERT_TRUE(second.setValue(u"a"_s, qint64(2)));
    first.refresh();
    EXPECT_EQ(news, 1);
    EXPECT_EQ(first.value(u"a"_s), QVariant(qint64(2)));
    first.refresh();
    EXPECT_EQ(news, 1);

    // A change of its own that is not on the disk yet stays above.
    ASSERT_TRUE(second.setValue(u"b"_s, true));
    {
        const FileSizeLimit full(64);
        EXPECT_FALSE(first.setValue(u"a"_s, qint64(3)));
    }
    EXPECT_EQ(news, 2) << "found on the way";
    EXPECT_EQ(first.value(u"b"_s), QVariant(true));
    ASSERT_TRUE(second.setValue(u"a"_s, qint64(4)));
    first.refresh();
    EXPECT_EQ(first.value(u"a"_s), QVariant(qint64(3)));
    EXPECT_TRUE(first.save());
    EXPECT_EQ(PropertyListPreferences(m_path).value(u"a"_s), QVariant(qint64(3)));
}

TEST_F(PropertyListPreferencesTest, AFileThatVanishesIsWrittenAnew)
{
    PropertyListPreferences preferences(m_path);
    ASSERT_TRUE(preferences.setValue(u"a"_s, true));
    ASSERT_TRUE(QFile::remove(m_path));
    preferences.refresh();
    EXPECT_EQ(preferences.value(u"a"_s), QVariant(true));
    ASSERT_TRUE(preferences.setValue(u"b"_s, true));
    EXPECT_EQ(PropertyListPreferences(m_path).value(u"a"_s), QVariant(true));
}

TEST_F(PropertyListPreferencesTest, AFileDamagedMeanwhileIsMovedAsideAtTheNextChange)
{
    PropertyListPreferences preferences(m_path);
    ASSERT_TRUE(preferences.setValue(u"a"_s, true));
    create(m_path, "garbled"_ba);
    preferences.refresh();
    EXPECT_TRUE(damagedFiles(m_folder.path()).isEmpty());
    EXPECT_EQ(preferences.value(u"a"_s), QVariant(true));
    ASSERT_TRUE(preferences.setValue(u"b"_s, true));
    EXPECT_EQ(damagedFiles(m_folder.path()).size(), 1);
    EXPECT_EQ(PropertyListPreferences(m_path).value(u"a"_s), QVariant(true));
}

TEST_F(PropertyListPreferencesTest, AProcessThatHoldsTheLockDelaysOnlyOnce)
{
    const QString link = m_folder.filePath(u"link.plist"_s);
    ASSERT_TRUE(QFile::link(fileName, link));
    PropertyListPreferences preferences(link); // the lock is where the file is
    ASSERT_TRUE(preferences.setValue(u"a"_s, true));
    const int held = lockedByAnother();
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(preferences.setValue(u"b"_s, true));
    EXPECT_EQ(preferences.saveProblem(), Preferences::SaveProblem::Busy);
    EXPECT_GE(time.elapsed(), 900);
    time.restart();
    for (int i = 0; i < 5; ++i)
        EXPECT_FALSE(preferences.setValue(u"c"_s, qint64(i)));
    EXPECT_LT(time.elapsed(), 900);
    EXPECT_FALSE(PropertyListPreferences(m_path).value(u"b"_s).isValid());
    ::close(held);
    EXPECT_TRUE(preferences.save());
    const PropertyListPreferences again(m_path);
    EXPECT_EQ(again.value(u"b"_s), QVariant(true));
    EXPECT_EQ(again.value(u"c"_s), QVariant(qint64(4)));
}

TEST_F(PropertyListPreferencesTest, WaitsForAProcessThatIsWriting)
{
    PropertyListPreferences preferences(m_path);
    const int held = lockedByAnother();
    std::thread writer([held] {
        ::usleep(50000);
        ::close(held);
    });
    EXPECT_TRUE(preferences.setValue(u"a"_s, true));
    writer.join();
}

TEST_F(PropertyListPreferencesTest, ALockThatCannotBeHadKeepsNobodyFromStoring)
{
    ASSERT_TRUE(QDir().mkpath(m_folder.filePath(lockName)));
    PropertyListPreferences preferences(m_path);
    EXPECT_TRUE(preferences.setValue(u"a"_s, true));
    EXPECT_EQ(PropertyListPreferences(m_path).value(u"a"_s), QVariant(true));
}

TEST_F(PropertyListPreferencesTest, WhatCouldNotBeReadAtTheStartIsNotReplacedLater)
{
    PropertyListPreferences(m_path).setValue(u"favorites"_s, QVariantList{u"old"_s});
    PropertyListPreferences(m_path).setValue(u"hasLaunchedBefore"_s, true);
    PropertyListPreferences(m_path).setValue(u"customShortcuts"_s, "[old]"_ba);
    PropertyListPreferences(m_path).setValue(u"dismissed"_s, u"1.2"_s);
    const QByteArray before = contents(m_path);
    std::optional<PropertyListPreferences> preferences;
    {
        const NoMoreDescriptors none;
        preferences.emplace(m_path);
        EXPECT_FALSE(preferences->value(u"favorites"_s).isValid());
        EXPECT_TRUE(preferences->removeValue(u"dismissed"_s));
        EXPECT_EQ(preferences->saveProblem(), Preferences::SaveProblem::None) << "no change yet";
        EXPECT_FALSE(preferences->setValue(u"hasLaunchedBefore"_s, true));
        EXPECT_FALSE(preferences->setValue(u"favorites"_s, QVariantList{u"new"_s}));
        EXPECT_EQ(preferences->saveProblem(), Preferences::SaveProblem::Other);
    }
    EXPECT_EQ(contents(m_path), before);
    int news = 0;
    const auto subscription = preferences->onRefresh([&] { ++news; });
    preferences->setMerge(
        [](const QString &key, const QVariant &stored, const QVariant &changed) -> QVariant {
            EXPECT_EQ(key, u"favorites"_s) << "only that one differs";
            return stored.toList() + changed.toList();
        });
    EXPECT_TRUE(preferences->setValue(u"learningMode"_s, true));
    EXPECT_EQ(news, 1);
    const PropertyListPreferences again(m_path);
    for (const PropertyListPreferences *now :
         std::initializer_list<const PropertyListPreferences *>{&*preferences, &again}) {
        EXPECT_EQ(now->value(u"favorites"_s), QVariant(QVariantList{u"old"_s, u"new"_s}));
        EXPECT_EQ(now->value(u"customShortcuts"_s), QVariant("[old]"_ba));
        EXPECT_EQ(now->value(u"dismissed"_s), QVariant(u"1.2"_s));
        EXPECT_EQ(now->value(u"learningMode"_s), QVariant(true));
    }
    const QStringList kept = filesFromBeforeAMerge();
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(contents(m_folder.filePath(kept.first())), before);
}

TEST_F(PropertyListPreferencesTest, WhatCanBeReadLaterIsTakenUpBeforeAChange)
{
    PropertyListPreferences(m_path).setValue(u"favorites"_s, QVariantList{u"old"_s});
    std::optional<PropertyListPreferences> preferences;
    {
        const NoMoreDescriptors none;
        preferences.emplace(m_path);
    }
    preferences->refresh();
    EXPECT_EQ(preferences->value(u"favorites"_s), QVariant(QVariantList{u"old"_s}));
    EXPECT_TRUE(preferences->setValue(u"favorites"_s, QVariantList{u"old"_s, u"new"_s}));
    EXPECT_TRUE(filesFromBeforeAMerge().isEmpty()) << "nothing was changed unseen";
}

TEST_F(PropertyListPreferencesTest, TellsOnceThatChangesAreNotStoredAndOnceThatTheyAre)
{
    PropertyListPreferences preferences(m_path);
    QList<Preferences::SaveProblem> told;
    const auto subscription =
        preferences.onSaveProblem([&] { told.append(preferences.saveProblem()); });
    ASSERT_TRUE(preferences.setValue(u"a"_s, true));
    EXPECT_TRUE(preferences.save());
    EXPECT_TRUE(told.isEmpty());
    {
        const FileSizeLimit full(64);
        EXPECT_FALSE(preferences.setValue(u"a"_s, false));
        EXPECT_FALSE(preferences.setValue(u"b"_s, false));
        EXPECT_FALSE(preferences.save());
        EXPECT_EQ(told, QList{Preferences::SaveProblem::NoRoom});
    }
    EXPECT_TRUE(preferences.save());
    EXPECT_EQ(told, (QList{Preferences::SaveProblem::NoRoom, Preferences::SaveProblem::None}));
    EXPECT_EQ(PropertyListPreferences(m_path).value(u"a"_s), QVariant(false));
}

// Killing the program at any moment loses at most the change in flight, and never the file.
TEST_F(PropertyListPreferencesTest, SurvivesBeingKilledWhileWriting)
{
    constexpr int kills = 30;
    std::mt19937 random(20260101); // NOLINT(cert-msc51-cpp): the same moments in every run
    std::uniform_int_distribution<int> microseconds(500, 60000);
    qint64 lastKnown = 0;
    int killedAfterAWrite = 0;
    for (int i = 0; i < kills; ++i) {
        int ends[2] = {-1, -1};
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            PropertyListPreferences preferences(m_path);
            for (qint64 count = lastKnown + 1;; ++count) {
                // The payload follows the count, so that half of a write could be told apart.
                const QByteArray payload(static_cast<qsizetype>(count % 50) * 1000, 'p');
                if (!preferences.setValue(
                        u"state"_s, QVariantMap{{u"count"_s, count}, {u"payload"_s, payload}}))
                    ::_exit(1);
                if (::write(ends[1], &count, sizeof count) != sizeof count)
                    ::_exit(2);
            }
        }
        ::close(ends[1]);
        ::usleep(static_cast<useconds_t>(microseconds(random)));
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the child gave up by itself";
        qint64 acknowledged = lastKnown;
        while (::read(ends[0], &acknowledged, sizeof acknowledged) == sizeof acknowledged)
            ++killedAfterAWrite;
        ::close(ends[0]);

        const PropertyListPreferences preferences(m_path);
        const QVariantMap state = preferences.value(u"state"_s).toMap();
        lastKnown = state.value(u"count"_s).toLongLong();
        EXPECT_GE(lastKnown, acknowledged);
        EXPECT_LE(lastKnown, acknowledged + 1);
        EXPECT_EQ(state.value(u"payload"_s).toByteArray().size(), (lastKnown % 50) * 1000);
        EXPECT_TRUE(damagedFiles(m_folder.path()).isEmpty());
    }
    EXPECT_GT(killedAfterAWrite, kills / 3) << "too slow to test anything";
}

} // namespace hmatnik::platform
