#include "platform/linux/shortcuts/XfceShortcuts.h"

#include "platform/linux/shortcuts/ActionKind.h"
#include "platform/linux/shortcuts/BindingKeys.h"
#include "platform/linux/shortcuts/CommandTitle.h"
#include "platform/linux/shortcuts/SessionBus.h"
#include "platform/linux/shortcuts/SettingsFile.h"
#include "platform/linux/shortcuts/ShortcutsJson.h"

#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

using Kind = SystemShortcut::Kind;

const auto channel = u"xfce4-keyboard-shortcuts"_s;
// What names of actions begin with.
const auto windowAction = u"xfce:xfwm4/"_s;
const auto commandAction = u"xfce:commands/"_s;

/// Xfce's window manager has names for its actions only inside its settings dialogue. Those that
/// work only while a window is being moved have none here, and are left out.
const QHash<QString, QString> &windowActions()
{
    static const QHash<QString, QString> titles = [] {
        QHash<QString, QString> all{
            {u"above_key"_s, u"Okno vždy navrchu"_s},
            {u"add_adjacent_workspace_key"_s, u"Přidat vedlejší plochu"_s},
            {u"add_workspace_key"_s, u"Přidat plochu"_s},
            {u"close_window_key"_s, u"Zavřít okno"_s},
            {u"cycle_reverse_windows_key"_s, u"Přepnout okno zpět"_s},
            {u"cycle_windows_key"_s, u"Přepnout okno"_s},
            {u"del_active_workspace_key"_s, u"Odebrat tuto plochu"_s},
            {u"del_workspace_key"_s, u"Odebrat poslední plochu"_s},
            {u"down_workspace_key"_s, u"Plocha dole"_s},
            {u"fill_horiz_key"_s, u"Vyplnit okno vodorovně"_s},
            {u"fill_vert_key"_s, u"Vyplnit okno svisle"_s},
            {u"fill_window_key"_s, u"Vyplnit okno"_s},
            {u"fullscreen_key"_s, u"Okno na celou obrazovku"_s},
            {u"hide_window_key"_s, u"Minimalizovat okno"_s},
            {u"left_workspace_key"_s, u"Plocha vlevo"_s},
            {u"lower_window_key"_s, u"Okno dospodu"_s},
            {u"maximize_horiz_key"_s, u"Maximalizovat okno vodorovně"_s},
            {u"maximize_vert_key"_s, u"Maximalizovat okno svisle"_s},
            {u"maximize_window_key"_s, u"Maximalizovat okno"_s},
            {u"move_window_down_key"_s, u"Okno na plochu dole"_s},
            {u"move_window_down_workspace_key"_s, u"Okno na plochu dole"_s},
            {u"move_window_key"_s, u"Přesunout okno"_s},
            {u"move_window_left_key"_s, u"Okno na plochu vlevo"_s},
            {u"move_window_left_workspace_key"_s, u"Okno na plochu vlevo"_s},
            {u"move_window_next_workspace_key"_s, u"Okno na další plochu"_s},
            {u"move_window_prev_workspace_key"_s, u"Okno na předchozí plochu"_s},
            {u"move_window_right_key"_s, u"Okno na plochu vpravo"_s},
            {u"move_window_right_workspace_key"_s, u"Okno na plochu vpravo"_s},
            {u"move_window_to_monitor_down_key"_s, u"Okno na obrazovku dole"_s},
            {u"move_window_to_monitor_left_key"_s, u"Okno na obrazovku vlevo"_s},
            {u"move_window_to_monitor_right_key"_s, u"Okno na obrazovku vpravo"_s},
            {u"move_window_to_monitor_up_key"_s, u"Okno na obrazovku nahoře"_s},
            {u"move_window_up_key"_s, u"Okno na plochu nahoře"_s},
            {u"move_window_up_workspace_key"_s, u"Okno na plochu nahoře"_s},
            {u"next_workspace_key"_s, u"Další plocha"_s},
            {u"popup_menu_key"_s, u"Nabídka okna"_s},
            {u"prev_workspace_key"_s, u"Předchozí plocha"_s},
            {u"raise_window_key"_s, u"Okno navrch"_s},
            {u"raiselower_window_key"_s, u"Okno navrch, nebo dospodu"_s},
            {u"resize_window_key"_s, u"Změnit velikost okna"_s},
            {u"right_workspace_key"_s, u"Plocha vpravo"_s},
            {u"shade_window_key"_s, u"Sbalit okno"_s},
            {u"show_desktop_key"_s, u"Ukázat plochu"_s},
            {u"stick_window_key"_s, u"Okno na všechny plochy"_s},
            {u"switch_application_key"_s, u"Přepnout aplikaci"_s},
            {u"switch_window_key"_s, u"Přepnout okno aplikace"_s},
            {u"tile_down_key"_s, u"Okno do dolní poloviny"_s},
            {u"tile_down_left_key"_s, u"Okno do levého dolního rohu"_s},
            {u"tile_down_right_key"_s, u"Okno do pravého dolního rohu"_s},
            {u"tile_left_key"_s, u"Okno do levé poloviny"_s},
            {u"tile_right_key"_s, u"Okno do pravé poloviny"_s},
            {u"tile_up_key"_s, u"Okno do horní poloviny"_s},
            {u"tile_up_left_key"_s, u"Okno do levého horního rohu"_s},
            {u"tile_up_right_key"_s, u"Okno do pravého horního rohu"_s},
            {u"up_workspace_key"_s, u"Plocha nahoře"_s}};
        constexpr int workspaces = 12;
        for (int i = 1; i <= workspaces; ++i) {
            const QString number = QString::number(i);
            all.insert(u"workspace_"_s + number + u"_key"_s, u"Plocha "_s + number);
            all.insert(
                u"move_window_workspace_"_s + number + u"_key"_s, u"Okno na plochu "_s + number);
        }
        return all;
    }();
    return titles;
}

/// The properties directly below a path, by their names and in their order.
QList<std::pair<QString, QString>>
bindingsBelow(const XfceProperties &properties, const QString &path)
{
    QList<std::pair<QString, QString>> bindings;
    for (auto entry = properties.begin(); entry != properties.end(); ++entry) {
        if (!entry.key().startsWith(path) || entry->typeId() != QMetaType::QString)
            continue;
        const QString name = entry.key().mid(path.size());
        if (!name.contains(u'/'))
            bindings.append({name, entry->toString()});
    }
    std::sort(bindings.begin(), bindings.end());
    return bindings;
}

/// Bindings of one half of the channel.
struct Bindings
{
    QList<std::pair<QString, QString>> inForce;
    /// Those that the desktop comes with.
    QList<std::pair<QString, QString>> usual;
};

Bindings bindingsOf(const XfceProperties &properties, const QString &group)
{
    const auto usual = bindingsBelow(properties, group + u"/default/"_s);
    // Once the person has changed one, a copy of all is in force, from which they have taken away
    // what they don't want.
    if (properties.value(group + u"/custom/override"_s).toBool())
        return {bindingsBelow(properties, group + u"/custom/"_s), usual};
    return {usual, usual};
}

SystemShortcuts::Result askService()
{
    const SessionBus bus;
    const QByteArray name = channel.toUtf8();
    const auto answer = bus.call(
        "org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf", "GetAllProperties",
        g_variant_new("(ss)", name.constData(), "/"), "(a{sv})");
    if (!answer)
        return std::nullopt;
    XfceProperties properties;
    const Owned<GVariant> all(g_variant_get_child_value(answer.get(), 0));
    for (gsize i = 0; i < g_variant_n_children(all.get()); ++i) {
        const Owned<GVariant> entry(g_variant_get_child_value(all.get(), i));
        const Owned<GVariant> path(g_variant_get_child_value(entry.get(), 0));
        const Owned<GVariant> boxed(g_variant_get_child_value(entry.get(), 1));
        const Owned<GVariant> value(g_variant_get_variant(boxed.get()));
        const QString key = QString::fromUtf8(g_variant_get_string(path.get(), nullptr));
        if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING))
            properties.insert(key, QString::fromUtf8(g_variant_get_string(value.get(), nullptr)));
        else if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_BOOLEAN))
            properties.insert(key, g_variant_get_boolean(value.get()) == TRUE);
    }
    return xfceShortcuts(properties);
}

} // namespace

bool addXfceFile(const QByteArray &text, XfceProperties &properties)
{
    QXmlStreamReader xml(text);
    QStringList path;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement: {
            const QXmlStreamAttributes attributes = xml.attributes();
            const QString name = attributes.value("name"_L1).toString();
            if (xml.name() == "channel"_L1 && name != channel)
                return false;
            path.append(xml.name() == "property"_L1 ? u'/' + name : QString());
            if (attributes.value("type"_L1) == "string"_L1)
                properties.insert(path.join(QString()), attributes.value("value"_L1).toString());
            else if (attributes.value("type"_L1) == "bool"_L1)
                properties.insert(path.join(QString()), attributes.value("value"_L1) == "true"_L1);
            break;
        }
        case QXmlStreamReader::EndElement:
            path.removeLast();
            break;
        default:
            break;
        }
    }
    return !xml.hasError();
}

SystemShortcutSettings xfceShortcuts(const XfceProperties &properties)
{
    SystemShortcutSettings settings;
    QHash<QString, qsizetype> known;
    QSet<QString> pressable;
    const auto add = [&](const QString &actionId, const QString &title, const QString &binding,
                         Kind kind) {
        const QStringList keys = BindingKeys::fromGtk(binding);
        if (keys.isEmpty())
            return;
        pressable.insert(actionId);
        if (title.isEmpty())
            return;
        if (const auto place = known.constFind(actionId); place != known.constEnd()) {
            settings.shortcuts[*place].otherKeys.append(keys);
        } else if (settings.shortcuts.size() < ShortcutsJson::mostShortcuts) {
            known.insert(actionId, settings.shortcuts.size());
            settings.shortcuts.append({actionId, title, keys, kind, u"Xfce"_s});
        }
    };
    const Bindings windows = bindingsOf(properties, u"/xfwm4"_s);
    const Bindings commands = bindingsOf(properties, u"/commands"_s);
    for (const auto &[binding, action] : windows.inForce)
        add(windowAction + action, windowActions().value(action), binding, Kind::windows);
    for (const auto &[binding, command] : commands.inForce)
        add(commandAction + command, commandTitle(command), binding,
            kindOfAction(command, Kind::general));

    QSet<QString> withoutKeys;
    for (const auto &[binding, action] : windows.usual + windows.inForce)
        withoutKeys.insert(windowAction + action);
    for (const auto &[binding, command] : commands.usual + commands.inForce)
        withoutKeys.insert(commandAction + command);
    withoutKeys.removeIf([&](const QString &actionId) { return pressable.contains(actionId); });
    settings.withoutKeys = withoutKeys.values();
    settings.withoutKeys.sort();
    return settings;
}

SystemShortcuts::Result readXfceShortcuts()
{
    if (auto settings = askService())
        return settings;
    XfceProperties properties;
    bool isAny = false;
    const QStringList files =
        settingsFiles(u"xfce4/xfconf/xfce-perchannel-xml/"_s + channel + u".xml"_s);
    // The person's own comes first, and says the last word.
    for (auto file = files.rbegin(); file != files.rend(); ++file) {
        const auto text = readBounded(*file);
        isAny = (text && addXfceFile(*text, properties)) || isAny;
    }
    return isAny ? SystemShortcuts::Result(xfceShortcuts(properties)) : std::nullopt;
}

} // namespace hmatnik::platform
