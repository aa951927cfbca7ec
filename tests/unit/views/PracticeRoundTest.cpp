#include "views/PracticeRound.h"

#include "FakeDesktop.h"
#include "model/AppModel.h"
#include "model/ShortcutLibrary.h"

#include <QRandomGenerator>
#include <QSet>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

UniformInteger seeded(quint32 seed)
{
    return [generator = std::make_shared<QRandomGenerator>(seed)](int bound) {
        return generator->bounded(bound);
    };
}

/// Picks the last of every choice, which leaves a list in its order.
UniformInteger keepingOrder()
{
    return [](int bound) {
        return bound - 1;
    };
}

/// Some combination that is no answer to the task.
QStringList wrongAnswer(const PracticeRound &round)
{
    return round.keys() + QStringList{u"Nic"_s};
}

} // namespace

class PracticeRoundTest : public testing::Test
{
protected:
    PracticeRoundTest() { m_round.setModel(&m_model); }

    void answer(bool right) { m_round.check(right ? m_round.keys() : wrongAnswer(m_round)); }

    test::FakeDesktop m_desktop;
    AppModel m_model{m_desktop.desktop()};
    PracticeRound m_round{keepingOrder()};
};

TEST_F(PracticeRoundTest, HasEightDifferentBuiltInTasks)
{
    m_model.setCustomShortcuts(
        {{u"custom-1"_s, u"Moje"_s, {u"K"_s}, Shortcut::Category::text, {}, u"Něco."_s}});
    for (quint32 seed = 0; seed < 200; ++seed) {
        PracticeRound round(seeded(seed));
        round.setModel(&m_model);
        ASSERT_EQ(round.items().size(), 8);
        QSet<QString> ids;
        for (const Shortcut &item : round.items()) {
            EXPECT_TRUE(ShortcutLibrary::all().contains(item));
            ids.insert(item.id);
        }
        EXPECT_EQ(ids.size(), 8);
    }
    EXPECT_EQ(m_round.taskCount(), 8);
}

TEST_F(PracticeRoundTest, DrawsEveryShortcutForEveryTaskEquallyOften)
{
    const QList<Shortcut> &library = ShortcutLibrary::all();
    constexpr int perCell = 100;
    const int rounds = static_cast<int>(library.size()) * perCell;
    std::map<QString, std::array<int, 8>> drawn;
    const UniformInteger random = seeded(20240229);
    for (int i = 0; i < rounds; ++i) {
        const PracticeRound round(random);
        for (size_t task = 0; task < 8; ++task)
            ++drawn[round.items()[static_cast<qsizetype>(task)].id][task];
    }
    ASSERT_EQ(drawn.size(), 58U);
    for (size_t task = 0; task < 8; ++task) {
        double chiSquared = 0;
        for (const auto &[id, counts] : drawn) {
            const double difference = counts[task] - perCell;
            chiSquared += difference * difference / perCell;
        }
        // 57 degrees of freedom: a uniform draw stays below this but once in a hundred thousand.
        EXPECT_LT(chiSquared, 112) << task;
    }
}

TEST_F(PracticeRoundTest, IsDrawnFromTheSystemUnlessToldOtherwise)
{
    QSet<QStringList> rounds;
    for (int i = 0; i < 20; ++i) {
        const PracticeRound round;
        QStringList ids;
        for (const Shortcut &item : round.items())
            ids.append(item.id);
        rounds.insert(ids);
    }
    EXPECT_EQ(rounds.size(), 20);
}

TEST_F(PracticeRoundTest, StartsUnanswered)
{
    EXPECT_TRUE(m_round.captured().isEmpty());
    EXPECT_EQ(m_round.result(), std::nullopt);
    EXPECT_EQ(m_round.verdict(), PracticeRound::Verdict::Unanswered);
    EXPECT_EQ(m_round.verdictText(), QString());
    EXPECT_EQ(m_round.taskText(), u"Úkol 1 / 8"_s);
    EXPECT_EQ(m_round.scoreText(), u"0 bodů"_s);
    EXPECT_EQ(m_round.title(), m_round.items().first().title);
    EXPECT_EQ(m_round.completedTasks(), 0);
}

TEST_F(PracticeRoundTest, TheRightKeysScore)
{
    const QSignalSpy changes(&m_round, &PracticeRound::changed);
    m_round.check(m_round.keys());
    EXPECT_EQ(m_round.result(), true);
    EXPECT_EQ(m_round.verdict(), PracticeRound::Verdict::Correct);
    EXPECT_EQ(m_round.verdictText(), u"Správně"_s);
    EXPECT_EQ(m_round.captured(), m_round.keys());
    EXPECT_EQ(m_model.practiceScore(), 1);
    EXPECT_EQ(m_round.scoreText(), u"1 bodů"_s);
    EXPECT_FALSE(changes.isEmpty());
}

TEST_F(PracticeRoundTest, NeitherOrderNorRepetitionMatters)
{
    QStringList tokens = m_round.keys();
    std::ranges::reverse(tokens);
    m_round.check(tokens + tokens);
    EXPECT_EQ(m_round.result(), true);
}

TEST_F(PracticeRoundTest, AnExtraModifierIsWrong)
{
    m_round.check(QStringList{u"⌃"_s} + m_round.keys());
    EXPECT_EQ(m_round.result(), false);
    EXPECT_EQ(m_round.verdict(), PracticeRound::Verdict::Wrong);
    EXPECT_EQ(m_round.verdictText(), u"Zkuste si zapamatovat správnou kombinaci"_s);
    EXPECT_EQ(m_model.practiceScore(), 0);
}

TEST_F(PracticeRoundTest, CaseMatters)
{
    ASSERT_EQ(m_round.keys(), (QStringList{u"⌘"_s, u"C"_s}));
    m_round.check({u"⌘"_s, u"c"_s});
    EXPECT_EQ(m_round.result(), false);
}

TEST_F(PracticeRoundTest, NothingPressedIsWrong)
{
    m_round.check({});
    EXPECT_EQ(m_round.result(), false);
}

TEST_F(PracticeRoundTest, ControlCharactersAreToldByGlyphsAndStayTokens)
{
    const QStringList pressed{u"⌥"_s, u"⌘"_s, u"\x1b"_s};
    m_round.check(pressed);
    EXPECT_EQ(m_round.captured(), pressed);
    EXPECT_EQ(m_round.capturedText(), u"⌥ ⌘ ⎋"_s);
    EXPECT_EQ(m_round.spokenCaptured(), u"Option Command Escape"_s);
    EXPECT_EQ(m_round.result(), false);
}

TEST_F(PracticeRoundTest, OnlyTheFirstAttemptCounts)
{
    m_round.check(wrongAnswer(m_round));
    m_round.check(m_round.keys());
    EXPECT_EQ(m_round.result(), false);
    EXPECT_EQ(m_model.practiceScore(), 0);
    EXPECT_EQ(m_round.captured(), m_round.keys());

    m_round.next();
    answer(true);
    const QStringList later = wrongAnswer(m_round);
    m_round.check(later);
    m_round.check(m_round.keys());
    EXPECT_EQ(m_round.result(), true);
    EXPECT_EQ(m_model.practiceScore(), 1);
}

TEST_F(PracticeRoundTest, ARoundFromItsFirstTaskToItsRestart)
{
    const QList<Shortcut> items = m_round.items();
    for (int task = 0; task < 8; ++task) {
        EXPECT_EQ(m_round.current(), items[task]);
        EXPECT_EQ(m_round.taskText(), u"Úkol %1 / 8"_s.arg(task + 1));
        EXPECT_EQ(m_round.completedTasks(), task);
        EXPECT_EQ(m_round.nextText(), task == 7 ? u"Začít znovu"_s : u"Další úkol"_s);
        answer(task % 2 == 0);
        EXPECT_EQ(m_model.practiceScore(), task / 2 + 1);
        if (task < 7) {
            m_round.next();
            EXPECT_TRUE(m_round.captured().isEmpty());
            EXPECT_EQ(m_round.result(), std::nullopt);
        }
    }

    m_round.next();
    EXPECT_EQ(m_model.practiceIndex(), 0);
    EXPECT_EQ(m_model.practiceScore(), 0);
    EXPECT_EQ(m_round.taskText(), u"Úkol 1 / 8"_s);
    EXPECT_EQ(m_round.scoreText(), u"0 bodů"_s);
    EXPECT_TRUE(m_round.captured().isEmpty());
    EXPECT_EQ(m_round.result(), std::nullopt);
}

TEST_F(PracticeRoundTest, ARestartAsksTheSameTasksInANewOrder)
{
    QSet<QStringList> orders;
    for (quint32 seed = 0; seed < 20; ++seed) {
        m_model.setPracticeIndex(0);
        PracticeRound round(seeded(seed));
        round.setModel(&m_model);
        const QList<Shortcut> before = round.items();
        for (int task = 0; task < 8; ++task)
            round.next();
        const QList<Shortcut> after = round.items();
        EXPECT_TRUE(std::ranges::is_permutation(before, after));
        QStringList order;
        for (const Shortcut &item : after)
            order.append(QString::number(before.indexOf(item)));
        orders.insert(order);
    }
    EXPECT_GE(orders.size(), 19);
}

TEST_F(PracticeRoundTest, IndexAndScoreOutlastTheScreen)
{
    answer(true);
    m_round.next();
    answer(false);
    PracticeRound again(seeded(5));
    again.setModel(&m_model);
    EXPECT_EQ(again.taskText(), u"Úkol 2 / 8"_s);
    EXPECT_EQ(again.scoreText(), u"1 bodů"_s);
    EXPECT_EQ(again.current(), again.items()[1]);
    EXPECT_EQ(again.result(), std::nullopt);
    EXPECT_TRUE(again.captured().isEmpty());
}

TEST_F(PracticeRoundTest, AnIndexOutOfRangeWraps)
{
    m_model.setPracticeIndex(11);
    EXPECT_EQ(m_round.current(), m_round.items()[3]);
    EXPECT_EQ(m_round.taskText(), u"Úkol 12 / 8"_s);
    EXPECT_EQ(m_round.nextText(), u"Další úkol"_s);
    m_model.setPracticeIndex(-1);
    EXPECT_EQ(m_round.current(), m_round.items()[7]);
}

TEST_F(PracticeRoundTest, AskedShortcutComesFirstAndTheRoundKeepsItsLength)
{
    const QList<Shortcut> &library = ShortcutLibrary::all();
    const Shortcut own{u"custom-1"_s, u"Moje"_s, {u"K"_s}, Shortcut::Category::text, {}, {}};
    for (const Shortcut &asked : {library.first(), library.at(5), library.last(), own}) {
        m_model.requestPractice(asked);
        PracticeRound round(keepingOrder());
        // A round that is already shown takes the request, one made later has nothing to take.
        EXPECT_EQ(m_round.items().first(), asked);
        round.setModel(&m_model);
        EXPECT_EQ(round.items().first(), library.first());
        QSet<QString> ids;
        for (const Shortcut &item : m_round.items())
            ids.insert(item.id);
        EXPECT_EQ(ids.size(), 8);
        EXPECT_EQ(m_round.taskCount(), 8);
    }
}

TEST_F(PracticeRoundTest, AnAskedShortcutOfAMenuIsAnsweredByItsKeys)
{
    const auto imported = [](const QStringList &keys) {
        return Shortcut{u"menu-Pokus"_s, u"Něco"_s, keys, Shortcut::Category::zaklady,
                        {u"Pokus"_s},    {}};
    };
    // As menus name the keys, and as a press gives them.
    const QList<std::pair<QStringList, QStringList>> answers{
        {{u"F11"_s}, {u"F11"_s}},
        {{u"⌃"_s, u"⌦"_s}, {u"⌃"_s, u"⌦"_s}},
        {{u"⌃"_s, u"⌫"_s}, {u"⌃"_s, u"Delete"_s}},
        {{u"⎋"_s}, {u"Esc"_s}},
        {{u"⌃"_s, u"-"_s}, {u"⌃"_s, u"−"_s}},
        {{u"⌃"_s, u"⇥"_s}, {u"⌃"_s, u"Tab"_s}}};
    for (const auto &[asked, pressed] : answers) {
        m_model.requestPractice(imported(asked));
        EXPECT_TRUE(m_round.areAllKeysNamed());
        EXPECT_EQ(m_round.keys(), asked);
        m_round.check(pressed);
        EXPECT_EQ(m_round.result(), true) << qPrintable(asked.join(u' '));
        m_round.next();
        EXPECT_FALSE(m_round.areAllKeysNamed()) << "the library's own tasks keep its notation";
    }
    m_model.requestPractice(imported({u"⌃"_s, u"⌫"_s}));
    m_round.check({u"⌃"_s, u"⌦"_s});
    EXPECT_EQ(m_round.result(), false);
}

TEST_F(PracticeRoundTest, TheMacsOwnTasksAreAnsweredInItsNotationAlone)
{
    for (const QString &id : {u"force-quit"_s, u"zoom-out"_s}) {
        const QList<Shortcut> &library = ShortcutLibrary::all();
        m_model.requestPractice(*std::ranges::find(library, id, &Shortcut::id));
        EXPECT_FALSE(m_round.areAllKeysNamed());
        QStringList pressed = m_round.keys();
        pressed.last() = id == "zoom-out"_L1 ? u"-"_s : u"\x1b"_s;
        m_round.check(pressed);
        EXPECT_EQ(m_round.result(), false) << qPrintable(id);
    }
}

TEST_F(PracticeRoundTest, WithTheDesktopsLibraryAllKeysAreNamed)
{
    m_model.setLibraryChoice(LibraryChoice::desktop);
    for (int task = 0; task < m_round.taskCount(); ++task) {
        EXPECT_TRUE(m_round.areAllKeysNamed());
        m_round.next();
    }
}

TEST_F(PracticeRoundTest, ARequestBeforeTheScreenIsTakenOnce)
{
    AppModel model{m_desktop.desktop()};
    model.setPracticeIndex(4);
    const Shortcut asked = ShortcutLibrary::all().last();
    model.requestPractice(asked);
    PracticeRound first(keepingOrder());
    first.setModel(&model);
    EXPECT_EQ(first.current(), asked);
    PracticeRound second(keepingOrder());
    second.setModel(&model);
    EXPECT_EQ(second.current(), ShortcutLibrary::all().first());
}

TEST_F(PracticeRoundTest, ARequestBeginsTheRoundAnew)
{
    answer(true);
    m_round.next();
    answer(false);
    const QSignalSpy requests(&m_round, &PracticeRound::requested);
    bool wasInconsistent = false;
    QObject::connect(&m_round, &PracticeRound::changed, [&] {
        wasInconsistent =
            wasInconsistent || m_round.verdict() != PracticeRound::Verdict::Unanswered;
    });
    m_model.requestPractice(ShortcutLibrary::all().last());
    EXPECT_FALSE(wasInconsistent);
    EXPECT_EQ(requests.count(), 1);
    EXPECT_EQ(m_round.current(), ShortcutLibrary::all().last());
    EXPECT_EQ(m_round.taskText(), u"Úkol 1 / 8"_s);
    EXPECT_EQ(m_round.scoreText(), u"0 bodů"_s);
    EXPECT_TRUE(m_round.captured().isEmpty());
    answer(true);
    EXPECT_EQ(m_model.practiceScore(), 1);
}

} // namespace hmatnik
