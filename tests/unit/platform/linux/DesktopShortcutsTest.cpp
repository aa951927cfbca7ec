#include "platform/linux/shortcuts/ActionKind.h"
#include "platform/linux/shortcuts/BindingKeys.h"
#include "platform/linux/shortcuts/CinnamonTitles.h"
#include "platform/linux/shortcuts/CommandTitle.h"
#include "platform/linux/shortcuts/KdeShortcuts.h"
#include "platform/linux/shortcuts/KeybindingTitles.h"
#include "platform/linux/shortcuts/OpenboxShortcuts.h"
#include "platform/linux/shortcuts/ShortcutStore.h"
#include "platform/linux/shortcuts/ShortcutsJson.h"
#include "platform/linux/shortcuts/XfceShortcuts.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;
using namespace platform;
using Kind = SystemShortcut::Kind;

namespace {

const QStringList none;

SystemShortcut shortcut(const QString &title = u"Zavřít"_s)
{
    return {u"kde:kwin/Close"_s, title, {u"⌥"_s, u"F4"_s}, Kind::windows, u"KDE"_s};
}

} // namespace

TEST(BindingKeys, OfGtk)
{
    EXPECT_EQ(BindingKeys::fromGtk(u"<Primary><Alt>t"_s), (QStringList{u"⌃"_s, u"⌥"_s, u"T"_s}));
    EXPECT_EQ(
        BindingKeys::fromGtk(u"<Super><Shift>Page_Up"_s), (QStringList{u"⇧"_s, u"⌘"_s, u"⇞"_s}));
    EXPECT_EQ(BindingKeys::fromGtk(u"<Alt>Tab"_s), (QStringList{u"⌥"_s, u"Tab"_s}));
    EXPECT_EQ(BindingKeys::fromGtk(u"<Super>space"_s), (QStringList{u"⌘"_s, u"Mezerník"_s}));
    EXPECT_EQ(BindingKeys::fromGtk(u"<Alt>Escape"_s), (QStringList{u"⌥"_s, u"Esc"_s}));
    EXPECT_EQ(BindingKeys::fromGtk(u"<Primary>BackSpace"_s), (QStringList{u"⌃"_s, u"Delete"_s}));
    EXPECT_EQ(BindingKeys::fromGtk(u"Print"_s), QStringList{u"Print"_s});
    EXPECT_EQ(BindingKeys::fromGtk(u"<Super>KP_Left"_s), (QStringList{u"⌘"_s, u"←"_s}));
    for (const QString &binding :
         {u""_s, u"disabled"_s, u"XF86AudioMute"_s, u"<Super>Above_Tab"_s, u"<Hyper>a"_s,
          u"<Super>"_s, u"a;b;<Alt>c"_s, u"Super_L"_s, QString(5000, u'a')})
        EXPECT_EQ(BindingKeys::fromGtk(binding), none) << binding.toStdString();
}

TEST(BindingKeys, OfQt)
{
    EXPECT_EQ(BindingKeys::fromQt(u"Meta+Shift+T"_s), (QStringList{u"⇧"_s, u"⌘"_s, u"T"_s}));
    EXPECT_EQ(BindingKeys::fromQt(u"Ctrl+Alt+Del"_s), (QStringList{u"⌃"_s, u"⌥"_s, u"⌦"_s}));
    EXPECT_EQ(BindingKeys::fromQt(u"Alt+C"_s), (QStringList{u"⌥"_s, u"C"_s}));
    EXPECT_EQ(BindingKeys::fromQt(u"Meta++"_s), (QStringList{u"⌘"_s, u"+"_s}));
    for (const QString &binding :
         {u""_s, u"none"_s, u"Volume Up"_s, u"Shift+Volume Up"_s, u"Meta+A, B"_s, u"<Alt>c"_s})
        EXPECT_EQ(BindingKeys::fromQt(binding), none) << binding.toStdString();
}

TEST(BindingKeys, OfQtNumbers)
{
    EXPECT_EQ(BindingKeys::fromQtKey(0x08000000 | 0x01000033), (QStringList{u"⌥"_s, u"F4"_s}));
    EXPECT_EQ(BindingKeys::fromQtKey(0x10000000 | 'E'), (QStringList{u"⌘"_s, u"E"_s}));
    EXPECT_EQ(
        BindingKeys::fromQtKey(0x16000000 | 0x01000012),
        (QStringList{u"⌃"_s, u"⇧"_s, u"⌘"_s, u"←"_s}));
    EXPECT_EQ(BindingKeys::fromQtKey(0x20000000 | 0x10000000 | '+'), (QStringList{u"⌘"_s, u"+"_s}));
    EXPECT_EQ(BindingKeys::fromQtKey(0x01000009), QStringList{u"Print"_s});
    EXPECT_EQ(BindingKeys::fromQtKey(0x04000000 | ' '), (QStringList{u"⌃"_s, u"Mezerník"_s}));
    for (const std::int32_t key : {0, 0x10000000, 0x01000072, 0x01000053, 0x00ffffff, -1})
        EXPECT_EQ(BindingKeys::fromQtKey(key), none) << key;
}

TEST(BindingKeys, OfOpenbox)
{
    EXPECT_EQ(BindingKeys::fromOpenbox(u"W-S-t"_s), (QStringList{u"⇧"_s, u"⌘"_s, u"T"_s}));
    EXPECT_EQ(BindingKeys::fromOpenbox(u"C-A-Left"_s), (QStringList{u"⌃"_s, u"⌥"_s, u"←"_s}));
    EXPECT_EQ(BindingKeys::fromOpenbox(u"Print"_s), QStringList{u"Print"_s});
    EXPECT_EQ(BindingKeys::fromOpenbox(u"A--"_s), (QStringList{u"⌥"_s, u"−"_s}));
    for (const QString &binding : {u""_s, u"X-a"_s, u"W-a b"_s, u"-"_s + QString(900, u'-')})
        EXPECT_EQ(BindingKeys::fromOpenbox(binding), none) << binding.toStdString();
}

TEST(ActionKind, TellsWhatAnActionActsOn)
{
    EXPECT_EQ(kindOfAction(u"show-screenshot-ui"_s, Kind::windows), Kind::screenshots);
    EXPECT_EQ(kindOfAction(u"www"_s, Kind::general), Kind::browser);
    EXPECT_EQ(kindOfAction(u"home"_s, Kind::general), Kind::files);
    EXPECT_EQ(kindOfAction(u"exo-open --launch WebBrowser"_s, Kind::general), Kind::browser);
    EXPECT_EQ(kindOfAction(u"xfce4-screenshooter -w"_s, Kind::general), Kind::screenshots);
    EXPECT_EQ(kindOfAction(u"close"_s, Kind::windows), Kind::windows);
}

TEST(CinnamonTitle, KnowsActionsAndNumberedPlaces)
{
    EXPECT_EQ(cinnamonTitle(u"close"_s), u"Zavřít okno"_s);
    EXPECT_EQ(cinnamonTitle(u"switch-to-workspace-12"_s), u"Plocha 12"_s);
    EXPECT_EQ(cinnamonTitle(u"unheard"_s), QString());
}

TEST(CommandTitle, NamesCommandsByWhatTheyStart)
{
    EXPECT_EQ(commandTitle(u" xflock4 "_s), u"Zamknout obrazovku"_s);
    EXPECT_EQ(commandTitle(u"gimp  -n"_s), u"Spustit gimp -n"_s);
    EXPECT_EQ(commandTitle(u" "_s), QString());
}

TEST(ShortcutStore, IsKnownByItsNames)
{
    EXPECT_EQ(shortcutStore(u"ubuntu:GNOME"_s, {}), ShortcutStore::gnome);
    EXPECT_EQ(shortcutStore(u"Budgie:GNOME"_s, {}), ShortcutStore::gnome);
    EXPECT_EQ(shortcutStore(u"X-Cinnamon"_s, {}), ShortcutStore::cinnamon);
    EXPECT_EQ(shortcutStore(u"MATE"_s, {}), ShortcutStore::mate);
    EXPECT_EQ(shortcutStore(u"KDE"_s, u"KWin"_s), ShortcutStore::kde);
    EXPECT_EQ(shortcutStore(u"XFCE"_s, u"openbox"_s), ShortcutStore::xfce);
    EXPECT_EQ(shortcutStore(u"LXQt"_s, {}), ShortcutStore::openbox);
    EXPECT_EQ(shortcutStore({}, u"Openbox"_s), ShortcutStore::openbox);
    EXPECT_EQ(shortcutStore({}, {}), std::nullopt);
    EXPECT_EQ(shortcutStore(u"::"_s, u"Metacity"_s), std::nullopt);
    for (const ShortcutStore kind :
         {ShortcutStore::gnome, ShortcutStore::kde, ShortcutStore::openbox})
        EXPECT_EQ(shortcutStoreNamed(nameOf(kind)), kind);
    EXPECT_EQ(shortcutStoreNamed(u"x"_s), std::nullopt);
}

TEST(ShortcutsJson, IsReadBack)
{
    QList<SystemShortcut> shortcuts{shortcut(), shortcut(u"Okno ⌘ \"a\""_s)};
    shortcuts[1].otherKeys = {{u"⌘"_s, u"Q"_s}, {u"F5"_s}};
    const SystemShortcutSettings settings{shortcuts, {u"kde:kwin/Window Move"_s}};
    EXPECT_EQ(ShortcutsJson::fromJson(ShortcutsJson::toJson(settings)), settings);
    EXPECT_EQ(
        ShortcutsJson::fromJson(R"({"shortcuts":[],"withoutKeys":[]})"), SystemShortcutSettings());
    const QByteArray good = R"({"id":"a","title":"b","keys":["c"],"kind":1,"desktop":"c"})";
    const auto withShortcut = [](const QByteArray &json) {
        return QByteArray(R"({"withoutKeys":[],"shortcuts":[)" + json + "]}");
    };
    EXPECT_TRUE(ShortcutsJson::fromJson(withShortcut(good)));
    for (const QByteArray &json :
         {QByteArray(), QByteArray("{}"), QByteArray("[]"), withShortcut("{}"), withShortcut("7"),
          QByteArray(R"({"shortcuts":[]})"), QByteArray(R"({"withoutKeys":[]})"),
          QByteArray(R"({"shortcuts":[],"withoutKeys":{}})"),
          QByteArray(R"({"shortcuts":[],"withoutKeys":["a",""]})"),
          QByteArray(R"({"shortcuts":[],"withoutKeys":[["a"]]})"),
          withShortcut(R"({"id":"a","title":"b","keys":[],"kind":0,"desktop":"c"})"),
          withShortcut(R"({"id":"a","title":"b","keys":["c"],"kind":9,"desktop":"c"})"),
          withShortcut(
              R"({"id":"a","title":"b","keys":["c"],"kind":1,"desktop":"c","others":[7]})")})
        EXPECT_EQ(ShortcutsJson::fromJson(json), std::nullopt) << json.constData();
}

TEST(ShortcutsJson, BoundsWhatItTakes)
{
    QList<SystemShortcut> many(12'000, shortcut());
    many[0].title = u"a\nb\0c"_s + QString(5000, u'x');
    many[1].actionId = QString(5000, u'x');
    many[2].keys.clear();
    many[3].title = u" \t"_s;
    many[4].otherKeys.fill({u"F5"_s}, 5000);
    QStringList withoutKeys(12'000, u"a"_s);
    withoutKeys[0] = QString(5000, u'x');
    withoutKeys[1] = QString(ShortcutsJson::longestActionId, u'x');
    const auto taken = ShortcutsJson::fromJson(ShortcutsJson::toJson({many, withoutKeys}));
    ASSERT_TRUE(taken);
    const QList<SystemShortcut> &shortcuts = taken->shortcuts;
    EXPECT_EQ(shortcuts.size(), ShortcutsJson::mostShortcuts);
    EXPECT_EQ(shortcuts.first().title.size(), ShortcutsJson::longestTitle);
    EXPECT_TRUE(shortcuts.first().title.startsWith(u"a b"_s));
    EXPECT_EQ(shortcuts.at(1).otherKeys.size(), ShortcutsJson::mostOtherKeys);
    EXPECT_EQ(shortcuts.at(2), shortcut());
    EXPECT_EQ(taken->withoutKeys.size(), ShortcutsJson::mostShortcuts);
    EXPECT_EQ(taken->withoutKeys.first(), withoutKeys.at(1));
}

TEST(KeybindingTitles, TheFirstListCountsAndNonsenseIsLeftOut)
{
    KeybindingTitles titles("none");
    for (QByteArray text :
         {QByteArray(R"(<KeyListEntries schema="a.b" package="none"><KeyListEntry name="close"
              description="Close window"/><KeyListEntry name="x"/>
              <KeyListEntry name="tile" schema="a.c" description="Tile"/>
              <KeyListEntry name="next" schema="a.d" key="count" comparison="gt" value="1"
              description="Next"/></KeyListEntries>)"),
          QByteArray(R"(<KeyListEntries schema="a.b"><KeyListEntry name="close"
              description="Other"/></KeyListEntries>)"),
          QByteArray("<KeyListEntries schema='c'><KeyListEntry name='d' description='e'"),
          QByteArray("\xff\xfe\x00", 3)}) {
        QBuffer list(&text);
        list.open(QIODevice::ReadOnly);
        titles.add(list);
    }
    EXPECT_EQ(titles.title(u"a.b"_s, u"close"_s), u"Close window"_s);
    EXPECT_EQ(titles.title(u"a.c"_s, u"tile"_s), u"Tile"_s);
    EXPECT_EQ(titles.title(u"a.b"_s, u"tile"_s), QString());
    EXPECT_EQ(titles.title(u"a.b"_s, u"next"_s), u"Next"_s) << "that schema is of another setting";
    EXPECT_EQ(titles.title(u"a.b"_s, u"x"_s), QString());
    EXPECT_EQ(titles.title(u"c"_s, u"d"_s), QString());
}

TEST(KdeShortcuts, OfTheFile)
{
    const SystemShortcutSettings settings =
        kdeShortcutsInFile("[kwin]\n_k_friendly_name=KWin\n"
                           "Window Close=Alt+F4\\tMeta+Q,Alt+F4,Zav\xc5\x99\xc3\xadt okno\n"
                           "Window Move=none,none,P\xc5\x99"
                           "esunout okno\n"
                           "Window Raise=,,Okno navrch\n"
                           "Edit Tiles=Meta+T,Meta+T,Okna\\, dla\xc5\xbe"
                           "dice\n"
                           "\n[services][org.kde.konsole.desktop]\n_launch=Ctrl+Alt+T\n"
                           "[kmix]\nmute=Volume Mute,Volume "
                           "Mute,Ztlumit\n[broken\nA=Meta+A\n=Meta+B\n\xff\xfe=Meta+C\n");
    const QList<SystemShortcut> expected{
        {u"kde:kwin/Window Close"_s,
         u"Zavřít okno"_s,
         {u"⌥"_s, u"F4"_s},
         Kind::windows,
         u"KDE"_s,
         {{u"⌘"_s, u"Q"_s}}},
        {u"kde:kwin/Edit Tiles"_s, u"Okna, dlaždice"_s, {u"⌘"_s, u"T"_s}, Kind::windows, u"KDE"_s},
        {u"kde:org.kde.konsole.desktop/_launch"_s,
         u"Spustit konsole"_s,
         {u"⌃"_s, u"⌥"_s, u"T"_s},
         Kind::general,
         u"KDE"_s}};
    EXPECT_EQ(settings.shortcuts, expected);
    EXPECT_EQ(
        settings.withoutKeys,
        (QStringList{u"kde:kwin/Window Move"_s, u"kde:kwin/Window Raise"_s, u"kde:kmix/mute"_s}));
}

TEST(KdeShortcuts, ManyWithoutKeysLeaveRoomForTheOthers)
{
    QByteArray text = "[kwin]\n";
    for (int i = 0; i < 12'000; ++i)
        text += "Off " + QByteArray::number(i) + "=none,none,x\n";
    for (int i = 0; i < 12'000; ++i)
        text += "On " + QByteArray::number(i) + "=Meta+A,none,x\n";
    const SystemShortcutSettings settings = kdeShortcutsInFile(text);
    EXPECT_EQ(settings.withoutKeys.size(), ShortcutsJson::mostShortcuts);
    EXPECT_EQ(settings.shortcuts.size(), ShortcutsJson::mostShortcuts);
}

TEST(XfceShortcuts, ThePersonsOwnCountWhereTheyHaveSetSome)
{
    const QByteArray file = R"(<?xml version="1.0"?><channel name="xfce4-keyboard-shortcuts">
        <property name="commands" type="empty"><property name="default" type="empty">
          <property name="&lt;Alt&gt;F2" type="string" value="xfce4-appfinder --collapsed">
            <property name="startup-notify" type="bool" value="true"/></property>
          <property name="XF86WWW" type="string" value="exo-open --launch WebBrowser"/>
        </property></property>
        <property name="xfwm4" type="empty">
          <property name="default" type="empty">
            <property name="&lt;Alt&gt;F4" type="string" value="close_window_key"/>
            <property name="&lt;Alt&gt;F9" type="string" value="hide_window_key"/>
            <property name="&lt;Alt&gt;F10" type="string" value="maximize_window_key"/>
            <property name="Escape" type="string" value="cancel_key"/></property>
          <property name="custom" type="empty">
            <property name="override" type="bool" value="OVERRIDE"/>
            <property name="&lt;Super&gt;w" type="string" value="close_window_key"/>
            <property name="&lt;Super&gt;q" type="string" value="close_window_key"/>
            <property name="XF86Down" type="string" value="hide_window_key"/>
            <property name="&lt;Alt&gt;F10" type="empty"/></property>
        </property></channel>)";
    QStringList withoutKeys;
    const auto keysOfClose = [&](const QByteArray &isOwn) {
        XfceProperties properties;
        EXPECT_TRUE(addXfceFile(QByteArray(file).replace("OVERRIDE", isOwn), properties));
        const SystemShortcutSettings settings = xfceShortcuts(properties);
        withoutKeys = settings.withoutKeys;
        const QList<SystemShortcut> &shortcuts = settings.shortcuts;
        EXPECT_EQ(shortcuts.last().title, u"Spustit příkaz"_s);
        for (const SystemShortcut &shortcut : shortcuts) {
            EXPECT_FALSE(withoutKeys.contains(shortcut.actionId));
            if (shortcut.actionId == u"xfce:xfwm4/close_window_key"_s)
                return QList<QStringList>{shortcut.keys} + shortcut.otherKeys;
        }
        return QList<QStringList>();
    };
    const QString browser = u"xfce:commands/exo-open --launch WebBrowser"_s;
    EXPECT_EQ(keysOfClose("false"), (QList<QStringList>{{u"⌥"_s, u"F4"_s}}));
    EXPECT_EQ(withoutKeys, (QStringList{browser}));
    // Taken away from the copy, or left there with a key of its own.
    EXPECT_EQ(keysOfClose("true"), (QList<QStringList>{{u"⌘"_s, u"Q"_s}, {u"⌘"_s, u"W"_s}}));
    EXPECT_EQ(
        withoutKeys, (QStringList{
                         browser, u"xfce:xfwm4/cancel_key"_s, u"xfce:xfwm4/hide_window_key"_s,
                         u"xfce:xfwm4/maximize_window_key"_s}));

    XfceProperties properties;
    EXPECT_FALSE(addXfceFile("<channel name=\"other\"/>", properties));
    EXPECT_FALSE(addXfceFile("\xff", properties));
    EXPECT_FALSE(addXfceFile("<channel name=\"xfce4-keyboard-shortcuts\">", properties));
}

TEST(OpenboxShortcuts, OfTheFile)
{
    const auto shortcuts = openboxShortcuts(
        R"(<openbox_config xmlns="http://openbox.org/3.4/rc"><theme><name>x</name></theme><keyboard>
        <keybind key="A-F4"><action name="Close"/></keybind>
        <keybind key="C-A-Left"><action name="GoToDesktop"><to>left</to></action></keybind>
        <keybind key="W-e"><action name="Execute"><command>pcmanfm</command></action></keybind>
        <keybind key="W-x"><keybind key="a"><action name="Close"/></keybind></keybind>
        <keybind key="W-z"><action name="Unheard"/></keybind>
        <keybind key="A-Tab"><action name="NextWindow"><finalactions><action name="Focus"/>
          </finalactions></action></keybind></keyboard></openbox_config>)");
    const QList<SystemShortcut> expected{
        {u"openbox:Close"_s, u"Zavřít okno"_s, {u"⌥"_s, u"F4"_s}, Kind::windows, u"Openbox"_s},
        {u"openbox:GoToDesktop/left"_s,
         u"Plocha vlevo"_s,
         {u"⌃"_s, u"⌥"_s, u"←"_s},
         Kind::windows,
         u"Openbox"_s},
        {u"openbox:Execute/pcmanfm"_s,
         u"Spustit pcmanfm"_s,
         {u"⌘"_s, u"E"_s},
         Kind::files,
         u"Openbox"_s},
        {u"openbox:NextWindow"_s,
         u"Přepnout okno"_s,
         {u"⌥"_s, u"Tab"_s},
         Kind::windows,
         u"Openbox"_s}};
    ASSERT_TRUE(shortcuts);
    EXPECT_EQ(*shortcuts, SystemShortcutSettings{expected});
    EXPECT_EQ(openboxShortcuts("<html/>"), std::nullopt);
    EXPECT_EQ(openboxShortcuts("<openbox_config><keyboard>"), std::nullopt);
    EXPECT_EQ(openboxShortcuts("\xff\xff"), std::nullopt);
}

} // namespace hmatnik::test
