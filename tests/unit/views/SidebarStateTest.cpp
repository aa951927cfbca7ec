#include "views/SidebarState.h"

#include "FakeDesktop.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;
using Kind = SidebarSelection::Kind;
using Screen = SidebarState::Screen;

namespace {

struct SidebarStateTest : testing::Test
{
    FakeDesktop desktop;
    AppModel model{desktop.desktop()};
    SidebarState sidebar{model};
};

QStringList titles(const QVariant &section)
{
    QStringList result;
    for (const QVariant &row : section.toMap()[u"rows"_s].toList())
        result.append(row.toMap()[u"title"_s].toString());
    return result;
}

} // namespace

TEST_F(SidebarStateTest, listsSectionsAndRowsInOrder)
{
    const QVariantList sections = sidebar.sections();
    ASSERT_EQ(sections.size(), 3);
    EXPECT_EQ(sections[0].toMap()[u"title"_s], u"KNIHOVNA"_s);
    EXPECT_EQ(titles(sections[0]), QStringList({u"Všechny zkratky"_s, u"Oblíbené"_s}));
    EXPECT_EQ(sections[1].toMap()[u"title"_s], u"OBJEVUJ"_s);
    EXPECT_EQ(
        titles(sections[1]), QStringList(
                                 {u"Vizuální klávesnice"_s, u"Samolepka"_s, u"První pomoc"_s,
                                  u"Dnešní zkratka"_s, u"Procvičování"_s}));
    EXPECT_EQ(sections[2].toMap()[u"title"_s], u"KATEGORIE"_s);
    EXPECT_EQ(
        titles(sections[2]), QStringList(
                                 {u"Základy"_s, u"Text"_s, u"Okna a aplikace"_s, u"Finder"_s,
                                  u"Snímky obrazovky"_s, u"Prohlížeč"_s}));
}

TEST_F(SidebarStateTest, numbersRowsThroughAllSections)
{
    int expected = 0;
    for (const QVariant &section : sidebar.sections()) {
        for (const QVariant &row : section.toMap()[u"rows"_s].toList())
            EXPECT_EQ(row.toMap()[u"row"_s].toInt(), expected++);
    }
    EXPECT_EQ(expected, 13);
    EXPECT_EQ(sidebar.rowCount(), 13);
}

TEST_F(SidebarStateTest, givesEachRowItsSymbol)
{
    QStringList symbols;
    for (const QVariant &section : sidebar.sections()) {
        for (const QVariant &row : section.toMap()[u"rows"_s].toList())
            symbols.append(row.toMap()[u"symbol"_s].toString());
    }
    EXPECT_EQ(
        symbols,
        QStringList(
            {u"square.grid.2x2"_s, u"star.fill"_s, u"keyboard"_s,
             u"rectangle.and.hand.point.up.left"_s, u"cross.case.fill"_s, u"sun.max.fill"_s,
             u"brain.head.profile"_s, u"sparkles"_s, u"text.cursor"_s, u"macwindow.on.rectangle"_s,
             u"folder"_s, u"camera.viewfinder"_s, u"globe"_s}));
}

TEST_F(SidebarStateTest, selectingARowSetsTheDestination)
{
    QSignalSpy changes(&sidebar, &SidebarState::selectionChanged);
    sidebar.select(9);
    EXPECT_EQ(model.selection(), SidebarSelection::ofCategory(Shortcut::Category::okna));
    EXPECT_EQ(sidebar.selectedRow(), 9);
    EXPECT_EQ(changes.count(), 1);
    sidebar.select(9);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(SidebarStateTest, rowsOutOfRangeChangeNothing)
{
    sidebar.select(-1);
    sidebar.select(13);
    EXPECT_EQ(model.selection(), SidebarSelection(Kind::all));
}

TEST_F(SidebarStateTest, walkingSelectsWhatItComesTo)
{
    sidebar.walk(1);
    EXPECT_EQ(sidebar.selectedRow(), 1);
    EXPECT_EQ(sidebar.walkedRow(), 1);
    sidebar.walk(-2);
    EXPECT_EQ(sidebar.selectedRow(), 0);
    sidebar.walk(100);
    EXPECT_EQ(sidebar.selectedRow(), 12);
}

TEST_F(SidebarStateTest, walkingPassesTheRowThatTakesTheKeyboard)
{
    sidebar.select(5);
    sidebar.walk(1);
    EXPECT_EQ(sidebar.walkedRow(), 6);
    EXPECT_EQ(sidebar.selectedRow(), 5);
    sidebar.walk(1);
    EXPECT_EQ(sidebar.selectedRow(), 7);
    sidebar.walk(-1);
    EXPECT_EQ(sidebar.walkedRow(), 6);
    EXPECT_EQ(sidebar.selectedRow(), 7);
    sidebar.openWalkedRow();
    EXPECT_EQ(sidebar.selectedRow(), 6);
}

TEST_F(SidebarStateTest, walkingBackFromAClosedRowReturnsToTheSelectedOne)
{
    sidebar.select(5);
    sidebar.walk(1);
    sidebar.walk(-1);
    EXPECT_EQ(sidebar.walkedRow(), 5);
    EXPECT_EQ(sidebar.selectedRow(), 5);
}

TEST_F(SidebarStateTest, theKeyboardFollowsASelectionFromElsewhere)
{
    QSignalSpy walks(&sidebar, &SidebarState::walkedRowChanged);
    sidebar.select(9);
    EXPECT_EQ(sidebar.walkedRow(), 9);
    EXPECT_EQ(walks.count(), 1);
}

TEST_F(SidebarStateTest, pageTitlesDifferFromRowsWhereTheyShould)
{
    const QStringList expected{
        u"Knihovna"_s,
        u"Oblíbené"_s,
        u"Vizuální klávesnice"_s,
        u"Zkratky ze samolepky"_s,
        u"První pomoc"_s,
        u"Dnešní výuka"_s,
        u"Procvičování"_s,
        u"Základy"_s,
        u"Text"_s,
        u"Okna a aplikace"_s,
        u"Finder"_s,
        u"Snímky obrazovky"_s,
        u"Prohlížeč"_s};
    for (int row = 0; row < sidebar.rowCount(); ++row) {
        sidebar.select(row);
        EXPECT_EQ(sidebar.pageTitle(), expected.at(row));
    }
}

TEST_F(SidebarStateTest, destinationsLeadToTheirScreens)
{
    EXPECT_EQ(SidebarState::screen(Kind::all), Screen::Library);
    EXPECT_EQ(SidebarState::screen(Kind::favorites), Screen::Library);
    EXPECT_EQ(
        SidebarState::screen(SidebarSelection::ofCategory(Shortcut::Category::finder)),
        Screen::Library);
    EXPECT_EQ(SidebarState::screen(Kind::keyboard), Screen::Keyboard);
    EXPECT_EQ(SidebarState::screen(Kind::sticker), Screen::Sticker);
    EXPECT_EQ(SidebarState::screen(Kind::firstAid), Screen::FirstAid);
    EXPECT_EQ(SidebarState::screen(Kind::daily), Screen::Daily);
    EXPECT_EQ(SidebarState::screen(Kind::practice), Screen::Practice);
}

TEST_F(SidebarStateTest, screenChangesOnlyWhenAnotherScreenShows)
{
    QSignalSpy screens(&sidebar, &SidebarState::screenChanged);
    sidebar.select(7);
    sidebar.select(8);
    EXPECT_EQ(screens.count(), 0);
    sidebar.select(6);
    EXPECT_EQ(screens.count(), 1);
}

} // namespace hmatnik::test
