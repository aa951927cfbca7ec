#include "views/VisualKeyboard.h"

#include "FakeDesktop.h"
#include "model/AppModel.h"
#include "model/ShortcutLibrary.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace hmatnik {

using Direction = VisualKeyboard::Direction;
using Position = VisualKeyboard::Position;

class VisualKeyboardTest : public testing::Test
{
protected:
    VisualKeyboardTest()
    {
        m_model.setSelection(SidebarSelection::Kind::keyboard);
        m_keyboard.setModel(&m_model);
    }

    QStringList matchIds() const
    {
        QStringList ids;
        for (const Shortcut &match : m_keyboard.matches())
            ids.append(match.id);
        return ids;
    }

    QStringList availableLabels() const
    {
        QStringList labels;
        for (const QStringList &row : VisualKeyboard::rows()) {
            for (const QString &label : row) {
                if (m_keyboard.isAvailable(label))
                    labels.append(label);
            }
        }
        return labels;
    }

    static Position find(const QString &label)
    {
        for (int row = 0; row < VisualKeyboard::rows().size(); ++row) {
            const auto column = VisualKeyboard::rows()[row].indexOf(label);
            if (column >= 0)
                return {row, static_cast<int>(column)};
        }
        return {-1, -1};
    }

    static QString label(Position position)
    {
        return VisualKeyboard::rows()[position.row][position.column];
    }

    test::FakeDesktop m_desktop;
    AppModel m_model{m_desktop.desktop()};
    VisualKeyboard m_keyboard;
};

TEST_F(VisualKeyboardTest, HasFourRowsAndTwoKeysTwice)
{
    const QList<QStringList> &rows = VisualKeyboard::rows();
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(rows[0].join(u' '), u"Esc 1 2 3 4 5 6 7 8 9 0 \u2212 ="_s);
    EXPECT_EQ(rows[1].join(u' '), u"Tab Q W E R T Y U I O P [ ]"_s);
    EXPECT_EQ(rows[2].join(u' '), u"⇧ A S D F G H J K L ; '"_s);
    EXPECT_EQ(rows[3].join(u' '), u"Fn ⌃ ⌥ ⌘ Mezerník ⌘ ⌥ ← ↑ ↓ →"_s);
    EXPECT_EQ(VisualKeyboard::width(u"Mezerník"_s), 210);
    EXPECT_EQ(VisualKeyboard::width(u"Esc"_s), 43);
}

TEST_F(VisualKeyboardTest, NoKeyIsAvailableWithoutAFilter)
{
    EXPECT_TRUE(availableLabels().isEmpty());
    m_model.setSearch(u"kop"_s);
    EXPECT_TRUE(availableLabels().isEmpty());
}

TEST_F(VisualKeyboardTest, AvailableAreTheKeysOfWhatPassesTheFilters)
{
    m_model.toggleModifier(ModifierFilter::shift);
    // Both ⌘ are available, and both ⌥ are not: no built-in shortcut has ⌥ and ⇧ together.
    EXPECT_EQ(availableLabels().join(u' '), u"3 4 5 Q T I ⇧ A F G H ⌃ ⌘ ⌘"_s);
    m_model.toggleModifier(ModifierFilter::fn);
    EXPECT_TRUE(availableLabels().isEmpty());
    m_model.toggleModifier(ModifierFilter::shift);
    EXPECT_EQ(availableLabels(), QStringList{u"Fn"_s});
    m_model.toggleModifier(ModifierFilter::fn);
    EXPECT_TRUE(availableLabels().isEmpty());
}

TEST_F(VisualKeyboardTest, SearchAndDestinationNarrowWhatIsAvailable)
{
    m_model.toggleModifier(ModifierFilter::command);
    m_model.setSearch(u"Kopírovat"_s);
    EXPECT_EQ(availableLabels(), (QStringList{u"⌘"_s, u"⌘"_s}));
    m_model.setSearch(u"Spotlight"_s);
    EXPECT_EQ(availableLabels(), (QStringList{u"⌘"_s, u"Mezerník"_s, u"⌘"_s}));
}

TEST_F(VisualKeyboardTest, CustomShortcutsMakeKeysAvailable)
{
    m_model.toggleModifier(ModifierFilter::fn);
    EXPECT_FALSE(m_keyboard.isAvailable(u"="_s));
    const QSignalSpy changes(&m_keyboard, &VisualKeyboard::changed);
    m_model.setCustomShortcuts(
        {{u"custom-1"_s, u"Moje"_s, {u"Fn"_s, u"="_s}, Shortcut::Category::text, {}, u"Něco."_s}});
    EXPECT_TRUE(m_keyboard.isAvailable(u"="_s));
    EXPECT_FALSE(changes.isEmpty());
}

TEST_F(VisualKeyboardTest, WithoutASelectedKeyTheFirstTwelveMatch)
{
    ASSERT_EQ(m_keyboard.selectedKey(), std::nullopt);
    QStringList expected;
    for (const Shortcut &shortcut : ShortcutLibrary::all().first(12))
        expected.append(shortcut.id);
    EXPECT_EQ(matchIds(), expected);
}

TEST_F(VisualKeyboardTest, SelectedSpaceBarListsOnlyWhatUsesIt)
{
    m_keyboard.click(u"Mezerník"_s);
    EXPECT_EQ(m_keyboard.selectedKey(), u"Mezerník"_s);
    EXPECT_EQ(matchIds(), (QStringList{u"emoji"_s, u"spotlight"_s, u"quick-look"_s}));
    m_model.toggleModifier(ModifierFilter::control);
    EXPECT_EQ(matchIds(), (QStringList{u"emoji"_s}));
}

TEST_F(VisualKeyboardTest, MatchesOfAKeyStopAtTwelve)
{
    m_keyboard.click(u"⌘"_s);
    EXPECT_EQ(m_keyboard.matches().size(), 12);
    EXPECT_TRUE(std::ranges::all_of(
        m_keyboard.matches(), [](const Shortcut &match) { return match.keys.contains(u"⌘"_s); }));
}

TEST_F(VisualKeyboardTest, ASecondClickShowsAllAgain)
{
    const QStringList all = matchIds();
    m_keyboard.click(u"4"_s);
    EXPECT_EQ(matchIds(), (QStringList{u"shot-area"_s, u"shot-clipboard"_s}));
    m_keyboard.click(u"4"_s);
    EXPECT_EQ(m_keyboard.selectedKey(), std::nullopt);
    EXPECT_EQ(matchIds(), all);
}

TEST_F(VisualKeyboardTest, AClickOnAnotherKeyMovesTheSelection)
{
    m_keyboard.click(u"4"_s);
    m_keyboard.click(u"3"_s);
    EXPECT_TRUE(m_keyboard.isSelected(u"3"_s));
    EXPECT_FALSE(m_keyboard.isSelected(u"4"_s));
    EXPECT_EQ(matchIds(), (QStringList{u"shot-full"_s}));
}

TEST_F(VisualKeyboardTest, AKeyThatNothingUsesMatchesNothing)
{
    m_keyboard.click(u"'"_s);
    EXPECT_TRUE(m_keyboard.matches().isEmpty());
    m_keyboard.click(u"Fn"_s);
    m_model.toggleModifier(ModifierFilter::shift);
    EXPECT_TRUE(m_keyboard.matches().isEmpty());
}

TEST_F(VisualKeyboardTest, ArrowKeysWalkAlongARow)
{
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"Q"_s), Direction::Right)), u"W"_s);
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"Q"_s), Direction::Left)), u"Tab"_s);
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"Tab"_s), Direction::Left)), u"Tab"_s);
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"→"_s), Direction::Right)), u"→"_s);
    // The right ⌘ lies beyond the space bar.
    EXPECT_EQ(VisualKeyboard::neighbour(find(u"Mezerník"_s), Direction::Right), (Position{3, 5}));
}

TEST_F(VisualKeyboardTest, ArrowKeysWalkToTheNearestKeyOfTheNextRow)
{
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"4"_s), Direction::Down)), u"R"_s);
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"R"_s), Direction::Up)), u"4"_s);
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"G"_s), Direction::Down)), u"Mezerník"_s);
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"F"_s), Direction::Down)), u"Mezerník"_s);
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"'"_s), Direction::Down)), u"↓"_s);
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"→"_s), Direction::Up)), u"'"_s);
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"Esc"_s), Direction::Up)), u"Esc"_s);
    EXPECT_EQ(label(VisualKeyboard::neighbour(find(u"⌃"_s), Direction::Down)), u"⌃"_s);
}

TEST_F(VisualKeyboardTest, EveryKeyCanBeReachedFromTheFirst)
{
    QList<Position> reached{{0, 0}};
    for (qsizetype i = 0; i < reached.size(); ++i) {
        for (Direction direction :
             {Direction::Left, Direction::Right, Direction::Up, Direction::Down}) {
            const Position next = VisualKeyboard::neighbour(reached[i], direction);
            if (!reached.contains(next))
                reached.append(next);
        }
    }
    EXPECT_EQ(reached.size(), 13 + 13 + 12 + 11);
}

TEST_F(VisualKeyboardTest, DrawsThePcsKeysWhereTheirNamesAreChosen)
{
    const QList<QStringList> &rows = VisualKeyboard::rows(KeyStyle::pc);
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(rows[0], VisualKeyboard::rows()[0]);
    EXPECT_EQ(rows[1], VisualKeyboard::rows()[1]);
    EXPECT_EQ(rows[2].join(u' '), u"⇧ A S D F G H J K L ; ' ↩"_s);
    EXPECT_EQ(rows[3].join(u' '), u"⌃ Fn ⌘ ⌥ Mezerník AltGr ⌃ ← ↑ ↓ →"_s);

    m_keyboard.setCurrent(3, 1);
    const QSignalSpy changes(&m_keyboard, &VisualKeyboard::keyRowsChanged);
    EXPECT_EQ(m_keyboard.caption(u"⌘"_s), u"⌘"_s);
    EXPECT_EQ(m_keyboard.description(u"⌘"_s, false), u"Command"_s);
    m_model.setKeyStyle(KeyStyle::pc);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(m_keyboard.current(), Position{}) << "that key may not be there any more";
    EXPECT_EQ(m_keyboard.property("keyRows").toList().at(2).toStringList(), rows[2]);
    EXPECT_EQ(m_keyboard.caption(u"⌘"_s), u"Super"_s);
    EXPECT_EQ(m_keyboard.description(u"⌘"_s, false), QString()) << "the name says it all";
    EXPECT_EQ(m_keyboard.description(u"⌃"_s, false), u"Control"_s);
}

TEST_F(VisualKeyboardTest, KeysOfAPcFilterByTheirTokens)
{
    m_model.setKeyStyle(KeyStyle::pc);
    m_keyboard.click(u"⌥"_s);
    EXPECT_TRUE(matchIds().contains(u"force-quit"_s));
    EXPECT_FALSE(matchIds().contains(u"copy"_s));
    m_model.toggleModifier(ModifierFilter::option);
    EXPECT_TRUE(m_keyboard.isAvailable(u"⌥"_s));
}

TEST_F(VisualKeyboardTest, ASelectedKeyThatIsNoLongerThereIsLetGo)
{
    m_model.setKeyStyle(KeyStyle::pc);
    m_keyboard.click(u"AltGr"_s);
    EXPECT_TRUE(matchIds().isEmpty());
    m_model.setKeyStyle(KeyStyle::mac);
    EXPECT_EQ(m_keyboard.selectedKey(), std::nullopt);
    m_keyboard.click(u"⌘"_s);
    m_model.setKeyStyle(KeyStyle::pc);
    EXPECT_EQ(m_keyboard.selectedKey(), u"⌘"_s);
}

TEST_F(VisualKeyboardTest, EveryKeyOfAPcIsReachedByArrows)
{
    const Position corner{2, static_cast<int>(VisualKeyboard::rows(KeyStyle::pc)[2].size()) - 1};
    EXPECT_EQ(VisualKeyboard::neighbour(corner, Direction::Right, KeyStyle::pc), corner);
    EXPECT_EQ(
        VisualKeyboard::neighbour({2, corner.column - 1}, Direction::Right, KeyStyle::pc), corner);
}

} // namespace hmatnik
