#include "views/DailyTrio.h"

#include "FakeDesktop.h"
#include "model/AppModel.h"
#include "model/ShortcutLibrary.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

Shortcut ownShortcut(const QString &id, const QStringList &apps)
{
    return {id, u"Moje"_s, {u"⌘"_s, u"K"_s}, Shortcut::Category::text, apps, u"Něco udělá."_s};
}

const QTimeZone &prague()
{
    static const QTimeZone zone("Europe/Prague");
    return zone;
}

} // namespace

class DailyTrioTest : public testing::Test
{
protected:
    /// Starts the program, as it were, with what has been set up so far.
    DailyTrio &start(const QString &activeApp = u"Nic"_s)
    {
        m_desktop.workspace->setFrontmost(platform::RunningApplication{activeApp, 4711});
        m_trio.reset();
        m_model = std::make_unique<AppModel>(m_desktop.desktop());
        m_trio = std::make_unique<DailyTrio>();
        m_trio->setModel(m_model.get());
        return *m_trio;
    }

    QStringList ids() const
    {
        QStringList ids;
        for (const Shortcut &shortcut : m_trio->trio())
            ids.append(shortcut.id);
        return ids;
    }

    test::FakeDesktop m_desktop;
    std::unique_ptr<AppModel> m_model;
    std::unique_ptr<DailyTrio> m_trio;
};

TEST_F(DailyTrioTest, AFreshlyInstalledProgramHasAStreakOfZero)
{
    const DailyTrio &trio = start();
    EXPECT_EQ(trio.streak(), 0);
    EXPECT_EQ(trio.lastLearnedDay(), QString());
    EXPECT_FALSE(trio.learnedToday());
    EXPECT_EQ(trio.headline(), u"DNEŠNÍ TROJICE  •  0 dní v řadě"_s);
    EXPECT_EQ(trio.confirmationText(), u"Trojici umím"_s);
    EXPECT_TRUE(m_desktop.preferences->writtenKeys().isEmpty());
}

TEST_F(DailyTrioTest, BeginsWithTheShortcutOfTheDay)
{
    m_desktop.clock->setNow(QDate(2025, 1, 7), QTime(12, 0), prague());
    start();
    EXPECT_EQ(m_model->dailyShortcut().id, u"find"_s);
    EXPECT_EQ(ids(), (QStringList{u"find"_s, u"emoji"_s, u"copy"_s}));
}

TEST_F(DailyTrioTest, ThenATipForTheApplicationInFront)
{
    start(u"Finder"_s);
    EXPECT_EQ(ids(), (QStringList{u"copy"_s, u"new-folder"_s, u"paste"_s}));
    m_model->setCustomShortcuts({ownShortcut(u"custom-1"_s, {u"Editor"_s})});
    const QSignalSpy changes(m_trio.get(), &DailyTrio::changed);
    m_desktop.workspace->activate(platform::RunningApplication{u"Editor"_s, 4712});
    EXPECT_FALSE(changes.isEmpty());
    EXPECT_EQ(ids(), (QStringList{u"copy"_s, u"custom-1"_s, u"paste"_s}));
    EXPECT_EQ(m_trio->kind(0), u"Základ"_s);
    EXPECT_EQ(m_trio->kind(1), u"Pro Editor"_s);
    EXPECT_EQ(m_trio->kind(2), u"K zopakování"_s);
}

TEST_F(DailyTrioTest, TheTipIsNeverTheShortcutOfTheDay)
{
    // Day 14: "new-folder", the first shortcut of the file manager.
    m_desktop.clock->setNow(QDate(2025, 1, 14), QTime(12, 0), prague());
    start(u"Finder"_s);
    EXPECT_EQ(ids(), (QStringList{u"new-folder"_s, u"go-folder"_s, u"copy"_s}));
}

TEST_F(DailyTrioTest, WithoutATipTheNextOfThePoolFollows)
{
    m_desktop.clock->setNow(QDate(2025, 2, 27), QTime(12, 0), prague());
    start();
    // The last of the pool: the next one is the first again.
    EXPECT_EQ(ids(), (QStringList{u"logout"_s, u"copy"_s, u"paste"_s}));
}

TEST_F(DailyTrioTest, TheThirdIsTheMostUsedOfTheOthers)
{
    m_desktop.preferences->preset(
        u"usageCounts"_s, QVariantMap{
                              {u"copy"_s, qint64(9)},
                              {u"new-folder"_s, qint64(8)},
                              {u"trash"_s, qint64(3)},
                              {u"hide"_s, qint64(5)},
                              {u"minimize"_s, qint64(5)}});
    start(u"Finder"_s);
    // "copy" and "new-folder" are there already; of equals the earlier one wins.
    EXPECT_EQ(ids(), (QStringList{u"copy"_s, u"new-folder"_s, u"hide"_s}));
}

TEST_F(DailyTrioTest, OwnShortcutsTakePart)
{
    m_desktop.preferences->preset(u"usageCounts"_s, QVariantMap{{u"custom-2"_s, qint64(1)}});
    start();
    m_model->setCustomShortcuts({ownShortcut(u"custom-1"_s, {}), ownShortcut(u"custom-2"_s, {})});
    EXPECT_EQ(ids(), (QStringList{u"copy"_s, u"paste"_s, u"custom-2"_s}));
}

TEST_F(DailyTrioTest, ConfirmingCountsTheDayOnce)
{
    DailyTrio &trio = start();
    const QSignalSpy changes(&trio, &DailyTrio::changed);
    trio.complete();
    EXPECT_EQ(trio.streak(), 1);
    EXPECT_TRUE(trio.learnedToday());
    EXPECT_EQ(trio.confirmationText(), u"Dnes splněno ✓"_s);
    EXPECT_EQ(trio.headline(), u"DNEŠNÍ TROJICE  •  1 dní v řadě"_s);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(
        m_desktop.preferences->writes(),
        (QList<test::FakePreferences::Write>{
            {u"learningStreak"_s, qint64(1)}, {u"lastLearnedDay"_s, u"2025-01-01"_s}}));

    m_desktop.clock->setNow(QDate(2025, 1, 1), QTime(23, 0), prague());
    trio.complete();
    EXPECT_EQ(trio.streak(), 1);
    EXPECT_EQ(m_desktop.preferences->writes().size(), 2);
}

TEST_F(DailyTrioTest, ADayThatAnotherProcessCountedIsNotCountedTwice)
{
    DailyTrio &trio = start();
    m_desktop.preferences->preset(u"learningStreak"_s, qint64(3));
    m_desktop.preferences->storeElsewhere(u"learningStreak"_s, qint64(4));
    m_desktop.preferences->storeElsewhere(
        u"lastLearnedDay"_s, m_desktop.clock->now().toUTC().date().toString(Qt::ISODate));
    const QSignalSpy changes(&trio, &DailyTrio::changed);
    trio.complete();
    EXPECT_EQ(trio.streak(), 4);
    EXPECT_TRUE(trio.learnedToday());
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(DailyTrioTest, TheConfirmationLastsOverARestart)
{
    start().complete();
    const DailyTrio &again = start();
    EXPECT_EQ(again.streak(), 1);
    EXPECT_TRUE(again.learnedToday());
}

TEST_F(DailyTrioTest, AMissedDayDoesNotResetTheStreak)
{
    DailyTrio &trio = start();
    trio.complete();
    m_desktop.clock->setNow(QDate(2025, 1, 2), QTime(12, 0), prague());
    EXPECT_FALSE(trio.learnedToday());
    EXPECT_EQ(trio.confirmationText(), u"Trojici umím"_s);
    trio.complete();
    EXPECT_EQ(trio.streak(), 2);
    m_desktop.clock->setNow(QDate(2025, 3, 9), QTime(12, 0), prague());
    EXPECT_EQ(trio.streak(), 2);
    trio.complete();
    EXPECT_EQ(trio.streak(), 3);
    EXPECT_EQ(trio.lastLearnedDay(), u"2025-03-09"_s);
}

TEST_F(DailyTrioTest, TheDayBeginsAtMidnightUtc)
{
    const DailyTrio &trio = start();
    // Half past midnight in Prague is still the day before in UTC.
    m_desktop.clock->setNow(QDate(2025, 1, 2), QTime(0, 30), prague());
    EXPECT_EQ(trio.today(), u"2025-01-01"_s);
    m_desktop.clock->setNow(QDate(2025, 1, 2), QTime(0, 59, 59, 999), prague());
    EXPECT_EQ(trio.today(), u"2025-01-01"_s);
    m_desktop.clock->setNow(QDate(2025, 1, 2), QTime(1, 0), prague());
    EXPECT_EQ(trio.today(), u"2025-01-02"_s);
    // West of Greenwich the day of learning is ahead.
    m_desktop.clock->setNow(QDate(2025, 1, 2), QTime(20, 0), QTimeZone("America/New_York"));
    EXPECT_EQ(trio.today(), u"2025-01-03"_s);
    // Summer time moves Prague's clock, not the day.
    m_desktop.clock->setNow(QDate(2025, 7, 2), QTime(1, 59), prague());
    EXPECT_EQ(trio.today(), u"2025-07-01"_s);
}

TEST_F(DailyTrioTest, StoredValuesOfTheWrongTypeCountAsNone)
{
    m_desktop.preferences->preset(u"learningStreak"_s, u"mnoho"_s);
    m_desktop.preferences->preset(u"lastLearnedDay"_s, qint64(20250101));
    DailyTrio &trio = start();
    EXPECT_EQ(trio.streak(), 0);
    EXPECT_EQ(trio.lastLearnedDay(), QString());
    trio.complete();
    EXPECT_EQ(trio.streak(), 1);
}

TEST_F(DailyTrioTest, AnEndlessStreakDoesNotOverflow)
{
    m_desktop.preferences->preset(u"learningStreak"_s, std::numeric_limits<qint64>::max());
    DailyTrio &trio = start();
    trio.complete();
    EXPECT_EQ(trio.streak(), std::numeric_limits<qint64>::max());
}

TEST_F(DailyTrioTest, AwaitsTheNextMidnightOnlyWhileSomebodyLooks)
{
    DailyTrio &trio = start();
    EXPECT_EQ(trio.millisecondsToNextDay(), -1);
    trio.setActive(true);
    // From noon in Prague to Prague's midnight, when the shortcut of the day changes.
    EXPECT_NEAR(trio.millisecondsToNextDay(), 12 * 3600 * 1000, 2000);
    m_desktop.clock->setNow(QDate(2025, 1, 2), QTime(0, 30), prague());
    trio.refresh();
    // And then to midnight UTC, when the day of learning does.
    EXPECT_NEAR(trio.millisecondsToNextDay(), 30 * 60 * 1000, 2000);
    trio.setActive(false);
    EXPECT_EQ(trio.millisecondsToNextDay(), -1);
}

TEST_F(DailyTrioTest, NoticesTheNewDayByItself)
{
    m_desktop.clock->setNow(QDateTime(QDate(2025, 1, 1), QTime(23, 59, 59, 900), QTimeZone::utc()));
    DailyTrio &trio = start();
    trio.complete();
    trio.setActive(true);
    QSignalSpy changes(&trio, &DailyTrio::changed);
    m_desktop.clock->setNow(QDateTime(QDate(2025, 1, 2), QTime(0, 0, 1), QTimeZone::utc()));
    ASSERT_TRUE(changes.wait(4000));
    EXPECT_FALSE(trio.learnedToday());
    EXPECT_NEAR(trio.millisecondsToNextDay(), 24 * 3600 * 1000, 3000);
}

TEST_F(DailyTrioTest, LooksAfreshWhenSomebodyComes)
{
    DailyTrio &trio = start();
    trio.complete();
    m_desktop.clock->setNow(QDate(2025, 1, 5), QTime(12, 0), prague());
    const QSignalSpy changes(&trio, &DailyTrio::changed);
    trio.setActive(true);
    EXPECT_FALSE(changes.isEmpty());
    EXPECT_EQ(trio.confirmationText(), u"Trojici umím"_s);
    const auto seen = changes.size();
    trio.refresh();
    EXPECT_GT(changes.size(), seen);
}

} // namespace hmatnik
