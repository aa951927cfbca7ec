#include "views/FirstAidSituation.h"

#include "model/ShortcutLibrary.h"
#include "views/ShortcutsById.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

QStringList ids(const QList<Shortcut> &shortcuts)
{
    QStringList ids;
    for (const Shortcut &shortcut : shortcuts)
        ids.append(shortcut.id);
    return ids;
}

} // namespace

TEST(FirstAidSituation, TheFiveSituationsInOrder)
{
    const QList<FirstAidSituation> &all = FirstAidSituation::all();
    ASSERT_EQ(all.size(), 5);
    EXPECT_EQ(all[0].title, u"Aplikace nereaguje"_s);
    EXPECT_EQ(all[0].symbol, u"exclamationmark.triangle.fill"_s);
    EXPECT_EQ(all[1].title, u"Něco jsem omylem změnil"_s);
    EXPECT_EQ(all[1].symbol, u"arrow.uturn.backward.circle.fill"_s);
    EXPECT_EQ(all[2].title, u"Nemohu najít soubor nebo aplikaci"_s);
    EXPECT_EQ(all[2].symbol, u"magnifyingglass.circle.fill"_s);
    EXPECT_EQ(all[3].title, u"Potřebuji zachytit obrazovku"_s);
    EXPECT_EQ(all[3].symbol, u"camera.viewfinder"_s);
    EXPECT_EQ(all[4].title, u"Chci se rychle vrátit k práci"_s);
    EXPECT_EQ(all[4].symbol, u"macwindow.on.rectangle"_s);
}

TEST(FirstAidSituation, TilesOfTheBuiltInLibrary)
{
    const QList<FirstAidSituation> &all = FirstAidSituation::all();
    const auto tiles = [&all](int situation) {
        return ids(shortcutsById(ShortcutLibrary::all(), all[situation].shortcutIds));
    };
    EXPECT_EQ(tiles(0), (QStringList{u"force-quit"_s}));
    EXPECT_EQ(tiles(1), (QStringList{u"undo"_s, u"redo"_s}));
    // The library holds "find" before "spotlight".
    EXPECT_EQ(tiles(2), (QStringList{u"find"_s, u"spotlight"_s}));
    EXPECT_EQ(tiles(3), (QStringList{u"shot-area"_s, u"shot-tools"_s}));
    EXPECT_EQ(tiles(4), (QStringList{u"switch-app"_s, u"mission-control"_s, u"app-windows"_s}));
}

TEST(FirstAidSituation, TilesFollowTheLibrarysOrder)
{
    QList<Shortcut> library = ShortcutLibrary::all();
    std::ranges::reverse(library);
    EXPECT_EQ(
        ids(shortcutsById(library, FirstAidSituation::all()[1].shortcutIds)),
        (QStringList{u"redo"_s, u"undo"_s}));
}

TEST(FirstAidSituation, IdsThatTheLibraryLacksAreSkipped)
{
    QList<Shortcut> library = ShortcutLibrary::all();
    library.removeIf([](const Shortcut &shortcut) { return shortcut.id == u"redo"_s; });
    EXPECT_EQ(
        ids(shortcutsById(library, FirstAidSituation::all()[1].shortcutIds)),
        (QStringList{u"undo"_s}));
    EXPECT_TRUE(shortcutsById({}, FirstAidSituation::all()[1].shortcutIds).isEmpty());
}

} // namespace hmatnik
