#include "views/LibraryState.h"

#include "FakeDesktop.h"
#include "model/ShortcutLibrary.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

namespace {

struct LibraryStateTest : testing::Test
{
    FakeDesktop desktop;
    AppModel model{desktop.desktop()};
    LibraryState library{model};

    QStringList shownIds()
    {
        QStringList ids;
        CardRows &rows = *library.rows();
        for (int row = 0; row < rows.rowCount(); ++row) {
            for (const QVariant &card : rows.data(rows.index(row), CardRows::CardsRole).toList())
                ids.append(card.value<CardData>().id);
        }
        return ids;
    }
};

} // namespace

TEST_F(LibraryStateTest, showsTheWholeLibraryInOrderAtFirst)
{
    QStringList expected;
    for (const Shortcut &shortcut : ShortcutLibrary::all())
        expected.append(shortcut.id);
    library.rows()->setColumns(3);
    EXPECT_EQ(shownIds(), expected);
    EXPECT_FALSE(library.isEmpty());
}

TEST_F(LibraryStateTest, cardsCarryWhatTheyShow)
{
    const CardData card = library.rows()
                              ->data(library.rows()->index(0), CardRows::CardsRole)
                              .toList()[0]
                              .value<CardData>();
    EXPECT_EQ(card.title, u"Kopírovat"_s);
    EXPECT_EQ(card.detail, u"Zkopíruje vybraný text nebo soubor."_s);
    EXPECT_EQ(card.keys, QStringList({u"⌘"_s, u"C"_s}));
    EXPECT_EQ(card.categoryName, u"Základy"_s);
    EXPECT_EQ(card.categorySymbol, u"sparkles"_s);
    EXPECT_TRUE(card.favorite);
    EXPECT_EQ(card.spoken, u"Zkopíruje vybraný text nebo soubor. Command C"_s);
}

TEST_F(LibraryStateTest, searchNarrowsTheCardsAndStartsAgainAtTheTop)
{
    QSignalSpy restarts(&library, &LibraryState::restarted);
    model.setSearch(u"⌘C"_s);
    EXPECT_EQ(shownIds(), QStringList({u"copy"_s, u"computer"_s}));
    EXPECT_EQ(restarts.count(), 1);
}

TEST_F(LibraryStateTest, nothingFoundIsEmptyUntilTheSearchGoes)
{
    model.setSearch(u"nic takového tu není"_s);
    EXPECT_TRUE(library.isEmpty());
    EXPECT_EQ(library.rows()->rowCount(), 0);
    model.setSearch({});
    EXPECT_EQ(library.rows()->cardCount(), 58);
}

TEST_F(LibraryStateTest, tellsHowManyAreLeftInTheRightForm)
{
    EXPECT_EQ(library.outcome(), u"58 zkratek"_s);
    model.setSelection(SidebarSelection::Kind::favorites);
    EXPECT_EQ(library.outcome(), u"4 zkratky"_s);
    library.toggleFavorite(0);
    library.toggleFavorite(0);
    EXPECT_EQ(library.outcome(), u"2 zkratky"_s);
    library.toggleFavorite(0);
    EXPECT_EQ(library.outcome(), u"1 zkratka"_s);
    library.toggleFavorite(0);
    EXPECT_EQ(library.outcome(), u"Žádná odpovídající zkratka"_s);
}

TEST_F(LibraryStateTest, unstarredCardLeavesTheFavourites)
{
    model.setSelection(SidebarSelection::Kind::favorites);
    EXPECT_EQ(shownIds(), QStringList({u"copy"_s, u"paste"_s, u"spotlight"_s, u"shot-area"_s}));
    QSignalSpy restarts(&library, &LibraryState::restarted);
    library.toggleFavorite(1);
    EXPECT_EQ(shownIds(), QStringList({u"copy"_s, u"spotlight"_s, u"shot-area"_s}));
    EXPECT_EQ(restarts.count(), 0) << "the view must stay where the person is";
}

TEST_F(LibraryStateTest, starsOutOfRangeChangeNothing)
{
    const QSet<QString> before = model.favorites();
    library.toggleFavorite(-1);
    library.toggleFavorite(58);
    EXPECT_EQ(model.favorites(), before);
}

} // namespace hmatnik::test
