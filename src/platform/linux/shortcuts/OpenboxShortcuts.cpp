#include "platform/linux/shortcuts/OpenboxShortcuts.h"

#include "platform/linux/shortcuts/ActionKind.h"
#include "platform/linux/shortcuts/BindingKeys.h"
#include "platform/linux/shortcuts/CommandTitle.h"
#include "platform/linux/shortcuts/SettingsFile.h"
#include "platform/linux/shortcuts/ShortcutsJson.h"

#include <QHash>
#include <QSet>
#include <QXmlStreamReader>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

using Kind = SystemShortcut::Kind;

struct Action
{
    QString name;
    /// What it goes to, or the command that it starts, or the menu that it shows.
    QString argument;
};

/// Openbox has no texts for its actions.
QString titleOf(const Action &action)
{
    static const QHash<QString, QString> plain{
        {u"Close"_s, u"Zavřít okno"_s},
        {u"Iconify"_s, u"Minimalizovat okno"_s},
        {u"Lower"_s, u"Okno dospodu"_s},
        {u"Maximize"_s, u"Maximalizovat okno"_s},
        {u"Move"_s, u"Přesunout okno"_s},
        {u"NextWindow"_s, u"Přepnout okno"_s},
        {u"PreviousWindow"_s, u"Přepnout okno zpět"_s},
        {u"Raise"_s, u"Okno navrch"_s},
        {u"Reconfigure"_s, u"Načíst nastavení oken znovu"_s},
        {u"Resize"_s, u"Změnit velikost okna"_s},
        {u"ToggleAlwaysOnTop"_s, u"Okno vždy navrchu"_s},
        {u"ToggleDecorations"_s, u"Okraje okna"_s},
        {u"ToggleFullscreen"_s, u"Okno na celou obrazovku"_s},
        {u"ToggleMaximize"_s, u"Maximalizovat okno"_s},
        {u"ToggleOmnipresent"_s, u"Okno na všechny plochy"_s},
        {u"ToggleShade"_s, u"Sbalit okno"_s},
        {u"ToggleShowDesktop"_s, u"Ukázat plochu"_s},
        {u"Unmaximize"_s, u"Obnovit velikost okna"_s}};
    static const QHash<QString, QString> directions{
        {u"left"_s, u"vlevo"_s},   {u"right"_s, u"vpravo"_s}, {u"up"_s, u"nahoře"_s},
        {u"down"_s, u"dole"_s},    {u"west"_s, u"vlevo"_s},   {u"east"_s, u"vpravo"_s},
        {u"north"_s, u"nahoře"_s}, {u"south"_s, u"dole"_s}};
    static const QHash<QString, QString> named{
        {u"next"_s, u"Další plocha"_s},
        {u"previous"_s, u"Předchozí plocha"_s},
        {u"last"_s, u"Poslední plocha"_s}};
    static const QHash<QString, QString> sent{
        {u"next"_s, u"Okno na další plochu"_s}, {u"previous"_s, u"Okno na předchozí plochu"_s}};
    const QString where = directions.value(action.argument);
    bool isNumber = false;
    action.argument.toInt(&isNumber);
    const QString place = isNumber ? action.argument : where;
    if (action.name == "Execute"_L1)
        return commandTitle(action.argument);
    if (action.name == "GoToDesktop"_L1 || action.name == "Desktop"_L1)
        return named.value(action.argument, place.isEmpty() ? QString() : u"Plocha "_s + place);
    if (action.name == "SendToDesktop"_L1) {
        return sent.value(
            action.argument, place.isEmpty() ? QString() : u"Okno na plochu "_s + place);
    }
    if (action.name == "DirectionalCycleWindows"_L1 && !where.isEmpty())
        return u"Okno "_s + where;
    if (action.name == "ShowMenu"_L1)
        return action.argument == "client-menu"_L1 ? u"Nabídka okna"_s : u"Nabídka plochy"_s;
    return plain.value(action.name);
}

/// Reads the element of one action, to its end.
Action readAction(QXmlStreamReader &xml)
{
    Action action{xml.attributes().value("name"_L1).toString(), {}};
    while (xml.readNextStartElement()) {
        const bool isArgument = xml.name() == "to"_L1 || xml.name() == "desktop"_L1 ||
                                xml.name() == "command"_L1 || xml.name() == "execute"_L1 ||
                                xml.name() == "menu"_L1 || xml.name() == "direction"_L1;
        if (isArgument)
            action.argument = xml.readElementText(QXmlStreamReader::SkipChildElements).simplified();
        else
            xml.skipCurrentElement();
    }
    return action;
}

/// Reads the element of one keybinding, to its end. Its title is empty if it is none that can be
/// told.
SystemShortcut readKeybinding(QXmlStreamReader &xml)
{
    const QStringList keys = BindingKeys::fromOpenbox(xml.attributes().value("key"_L1).toString());
    // The first action names it. What follows another keybinding inside belongs to a sequence of
    // strokes.
    Action first;
    while (xml.readNextStartElement()) {
        if (xml.name() == "action"_L1 && first.name.isEmpty())
            first = readAction(xml);
        else
            xml.skipCurrentElement();
    }
    const QString argument = first.argument.isEmpty() ? QString() : u'/' + first.argument;
    const Kind otherwise = first.name == "Execute"_L1 ? Kind::general : Kind::windows;
    return {
        u"openbox:"_s + first.name + argument, keys.isEmpty() ? QString() : titleOf(first), keys,
        kindOfAction(first.argument, otherwise), u"Openbox"_s};
}

/// Adds the keybindings of the element, to its end; of several for one action the first.
void readKeybindings(QXmlStreamReader &xml, QList<SystemShortcut> &shortcuts)
{
    QSet<QString> known;
    for (const SystemShortcut &shortcut : shortcuts)
        known.insert(shortcut.actionId);
    while (xml.readNextStartElement()) {
        if (xml.name() != "keybind"_L1) {
            xml.skipCurrentElement();
            continue;
        }
        const SystemShortcut shortcut = readKeybinding(xml);
        const bool isNew = !shortcut.title.isEmpty() && !known.contains(shortcut.actionId);
        if (isNew && shortcuts.size() < ShortcutsJson::mostShortcuts) {
            known.insert(shortcut.actionId);
            shortcuts.append(shortcut);
        }
    }
}

} // namespace

SystemShortcuts::Result openboxShortcuts(const QByteArray &text)
{
    QXmlStreamReader xml(text);
    if (!xml.readNextStartElement() || xml.name() != "openbox_config"_L1)
        return std::nullopt;
    QList<SystemShortcut> shortcuts;
    while (xml.readNextStartElement()) {
        if (xml.name() == "keyboard"_L1)
            readKeybindings(xml, shortcuts);
        else
            xml.skipCurrentElement();
    }
    if (xml.hasError())
        return std::nullopt;
    // The file knows no action without keys.
    return SystemShortcutSettings{shortcuts};
}

SystemShortcuts::Result readOpenboxShortcuts()
{
    const QString desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower();
    QStringList names{u"rc.xml"_s};
    if (desktop.contains(u"lxde"_s))
        names.prepend(u"lxde-rc.xml"_s);
    if (desktop.contains(u"lxqt"_s))
        names.prepend(u"lxqt-rc.xml"_s);
    for (const QString &name : names) {
        if (const auto text = readSettingsFile(u"openbox/"_s + name))
            return openboxShortcuts(*text);
    }
    return std::nullopt;
}

} // namespace hmatnik::platform
