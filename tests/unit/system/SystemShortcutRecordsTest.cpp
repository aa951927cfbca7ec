#include "system/SystemShortcutRecords.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;
using Kind = platform::SystemShortcut::Kind;

TEST(SystemShortcutRecords, BecomeRecordsOfNoApplication)
{
    const QList<Shortcut> records = recordsOf(
        {{u"gnome:org.gnome.desktop.wm.keybindings/close"_s,
          u"Zavřít okno"_s,
          {u"⌥"_s, u"F4"_s},
          Kind::windows,
          u"GNOME"_s}});
    const Shortcut expected{
        u"system-gnome:org.gnome.desktop.wm.keybindings/close-⌥F4"_s,
        u"Zavřít okno"_s,
        {u"⌥"_s, u"F4"_s},
        Shortcut::Category::okna,
        {},
        u"Načteno z nastavení plochy GNOME."_s};
    EXPECT_EQ(records, QList{expected});
}

TEST(SystemShortcutRecords, CategoryTellsWhatTheyActOn)
{
    const auto categoryOf = [](Kind kind) {
        return recordsOf({{u"a"_s, u"b"_s, {u"c"_s}, kind, u"d"_s}}).first().category;
    };
    EXPECT_EQ(categoryOf(Kind::general), Shortcut::Category::zaklady);
    EXPECT_EQ(categoryOf(Kind::windows), Shortcut::Category::okna);
    EXPECT_EQ(categoryOf(Kind::files), Shortcut::Category::finder);
    EXPECT_EQ(categoryOf(Kind::screenshots), Shortcut::Category::snimky);
    EXPECT_EQ(categoryOf(Kind::browser), Shortcut::Category::prohlizec);
}

} // namespace hmatnik::test
