#include "views/Sticker.h"

#include "model/ShortcutLibrary.h"
#include "views/ShortcutsById.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik {

TEST(Sticker, HoldsTheListedShortcutsInTheLibrarysOrder)
{
    QStringList ids;
    for (const Shortcut &shortcut : shortcutsById(ShortcutLibrary::all(), Sticker::shortcutIds()))
        ids.append(shortcut.id);
    EXPECT_EQ(
        ids, (QStringList{u"copy"_s,       u"paste"_s,       u"undo"_s,       u"save"_s,
                          u"emoji"_s,      u"spotlight"_s,   u"switch-app"_s, u"close-window"_s,
                          u"force-quit"_s, u"lock"_s,        u"new-folder"_s, u"go-folder"_s,
                          u"trash"_s,      u"quick-look"_s,  u"shot-full"_s,  u"shot-area"_s,
                          u"shot-tools"_s, u"restore-tab"_s, u"home"_s,       u"dock-toggle"_s,
                          u"computer"_s,   u"icloud"_s,      u"recents"_s,    u"minimize-all"_s}));
}

TEST(Sticker, ListsEachIdOnce)
{
    EXPECT_EQ(Sticker::shortcutIds().size(), 24);
    QStringList ids = Sticker::shortcutIds();
    EXPECT_EQ(ids.removeDuplicates(), 0);
}

} // namespace hmatnik
