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

TEST(SystemShortcutRecords, TellTheActionThatTheyAreFor)
{
    const QList<Shortcut> records = recordsOf(
        {{u"kde:kwin/Window Close"_s, u"Zavřít"_s, {u"⌥"_s, u"F4"_s}, Kind::windows, u"KDE"_s},
         {u"openbox:A-B"_s, u"Něco"_s, {u"⌃"_s, u"−"_s}, Kind::windows, u"openbox"_s}});
    EXPECT_EQ(actionOf(records[0]), u"kde:kwin/Window Close"_s);
    EXPECT_EQ(actionOf(records[1]), u"openbox:A-B"_s);
    Shortcut other = records[0];
    other.keys = {u"K"_s};
    EXPECT_EQ(actionOf(other), QString());
    other.id = u"custom-1"_s;
    EXPECT_EQ(actionOf(other), QString());
}

TEST(SystemShortcutRecords, TakeTheKeysThatTheirActionHasNow)
{
    const platform::SystemShortcut close{
        u"a/close"_s, u"Zavřít"_s, {u"⌥"_s, u"F4"_s}, Kind::windows, u"A"_s};
    platform::SystemShortcut closeTab = close;
    closeTab.actionId = u"a/close-tab"_s;
    QList<Shortcut> records = recordsOf({close, closeTab});
    Shortcut own = records[0];
    own.id = u"custom-1"_s;
    records.append(own);
    const QList<Shortcut> before = records;
    EXPECT_TRUE(takeKeys(records, {close, closeTab}).isEmpty());
    EXPECT_TRUE(takeKeys(records, {}).isEmpty()) << "it may have been switched off for a while";

    platform::SystemShortcut changed = close;
    changed.keys = {u"⌘"_s, u"Q"_s};
    changed.otherKeys = {close.keys};
    EXPECT_TRUE(takeKeys(records, {changed}).isEmpty()) << "the usual ones work, too";
    EXPECT_EQ(records, before);

    changed.otherKeys.clear();
    const auto changes = takeKeys(records, {changed});
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0].first, before[0]);
    EXPECT_EQ(changes[0].second, recordsOf({changed}).first());
    EXPECT_EQ(records[0], changes[0].second);
    EXPECT_EQ(records.sliced(1), before.sliced(1));
}

TEST(SystemShortcutRecords, StayTwoAndDistinctWhereTheNewKeysWereImportedToo)
{
    const platform::SystemShortcut before{
        u"a/close"_s, u"Zavřít"_s, {u"⌥"_s, u"F4"_s}, Kind::windows, u"A"_s};
    platform::SystemShortcut now = before;
    now.keys = {u"⌘"_s, u"Q"_s};
    QList<Shortcut> records = recordsOf({before, now});
    const QList<Shortcut> both = records;
    EXPECT_TRUE(takeKeys(records, {now}).isEmpty());
    EXPECT_EQ(records, both);

    // Of two that would become the same, one does.
    platform::SystemShortcut later = before;
    later.keys = {u"⌘"_s, u"W"_s};
    EXPECT_EQ(takeKeys(records, {later}).size(), 1);
    EXPECT_NE(records[0].id, records[1].id);
}

TEST(SystemShortcutRecords, AnActionWithoutANameIsNobodysOwn)
{
    QList<Shortcut> records{
        {u"custom-1"_s, u"Moje"_s, {u"K"_s}, Shortcut::Category::text, {}, u"Něco."_s}};
    const QList<Shortcut> before = records;
    EXPECT_TRUE(
        takeKeys(records, {{QString(), u"Cizí"_s, {u"F1"_s}, Kind::windows, u"A"_s}}).isEmpty());
    EXPECT_EQ(records, before);
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
