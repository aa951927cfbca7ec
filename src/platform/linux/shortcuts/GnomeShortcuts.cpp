#include "platform/linux/shortcuts/GnomeShortcuts.h"

#include "platform/linux/shortcuts/ActionKind.h"
#include "platform/linux/shortcuts/BindingKeys.h"
#include "platform/linux/shortcuts/CinnamonTitles.h"
#include "platform/linux/shortcuts/CommandTitle.h"
#include "platform/linux/shortcuts/KeybindingTitles.h"
#include "platform/linux/shortcuts/Owned.h"
#include "platform/linux/shortcuts/ShortcutsJson.h"

#include <gio/gio.h>
#include <libintl.h>

#include <vector>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

using Kind = SystemShortcut::Kind;

struct Schema
{
    const char *id;
    Kind kind;
    /// Message catalogue of the summaries where the schema doesn't name it; may be null.
    const char *catalogue = nullptr;
};

/// Where a desktop keeps the shortcuts that the person has added, each at a place of its own with a
/// name, a command and keys.
struct CustomBindings
{
    const char *entrySchema;
    const char *commandKey;
    /// Where the places are listed; null where they are numbered instead ("custom0").
    const char *listSchema;
    const char *listKey;
    /// What stands before and after a place's name; empty where it is a whole path.
    const char *pathStart;
    const char *pathEnd;
};

/// Numbered places that are looked at. Settings programs take the first free number.
constexpr int mostNumberedPlaces = 256;

struct Family
{
    QString prefix;
    QString name;
    QString settingsProgram;
    /// Message catalogue of the settings program's lists that name none.
    QByteArray catalogue;
    /// Type of the keys that hold bindings.
    const char *bindingType;
    std::vector<Schema> schemas;
    CustomBindings custom;
};

Family gnomeFamily()
{
    Family family{
        u"gnome"_s,
        u"GNOME"_s,
        u"gnome-control-center"_s,
        "gnome-control-center-2.0",
        "as",
        {{"org.gnome.desktop.wm.keybindings", Kind::windows},
         {"org.gnome.mutter.keybindings", Kind::windows, "mutter"},
         {"org.gnome.shell.keybindings", Kind::windows},
         {"org.gnome.settings-daemon.plugins.media-keys", Kind::general}},
        {"org.gnome.settings-daemon.plugins.media-keys.custom-keybinding", "command",
         "org.gnome.settings-daemon.plugins.media-keys", "custom-keybindings", "", ""}};
    const QString session = qEnvironmentVariable("XDG_SESSION_TYPE");
    if (session == "wayland"_L1)
        family.schemas.push_back({"org.gnome.mutter.wayland.keybindings", Kind::windows, "mutter"});
    // Desktops that have taken GNOME's settings and added to them.
    const QString desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    if (desktop.contains("Budgie"_L1))
        family.schemas.push_back({"com.solus-project.budgie-wm", Kind::windows, "budgie-desktop"});
    if (desktop.contains("GNOME-Flashback"_L1))
        family.schemas.push_back({"org.gnome.gnome-flashback.keybindings", Kind::general});
    return family;
}

Family familyOf(GnomeKin kin)
{
    switch (kin) {
    case GnomeKin::gnome:
        break;
    case GnomeKin::cinnamon:
        return {
            u"cinnamon"_s,
            u"Cinnamon"_s,
            {},
            {},
            "as",
            {{"org.cinnamon.desktop.keybindings", Kind::windows},
             {"org.cinnamon.desktop.keybindings.wm", Kind::windows},
             {"org.cinnamon.desktop.keybindings.media-keys", Kind::general},
             {"org.cinnamon.muffin.keybindings", Kind::windows}},
            {"org.cinnamon.desktop.keybindings.custom-keybinding", "command",
             "org.cinnamon.desktop.keybindings", "custom-list",
             "/org/cinnamon/desktop/keybindings/custom-keybindings/", "/"}};
    case GnomeKin::mate:
        return {
            u"mate"_s,
            u"MATE"_s,
            u"mate-control-center"_s,
            "mate-control-center",
            "s",
            {{"org.mate.Marco.window-keybindings", Kind::windows},
             {"org.mate.Marco.global-keybindings", Kind::windows},
             {"org.mate.SettingsDaemon.plugins.media-keys", Kind::general}},
            {"org.mate.control-center.keybinding", "action", nullptr, nullptr,
             "/org/mate/desktop/keybindings/", "/"}};
    }
    return gnomeFamily();
}

Owned<GSettingsSchema> installedSchema(const char *id)
{
    GSettingsSchemaSource *source = g_settings_schema_source_get_default();
    return Owned<GSettingsSchema>(
        source ? g_settings_schema_source_lookup(source, id, TRUE) : nullptr);
}

/// The texts of a value that is one or a list of them; empty for any other.
QStringList textsOf(GVariant *value)
{
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING))
        return {QString::fromUtf8(g_variant_get_string(value, nullptr))};
    QStringList texts;
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING_ARRAY)) {
        for (gsize i = 0; i < g_variant_n_children(value); ++i) {
            const Owned<GVariant> text(g_variant_get_child_value(value, i));
            texts.append(QString::fromUtf8(g_variant_get_string(text.get(), nullptr)));
        }
    }
    return texts;
}

/// Those of the bindings that are one. The first is the one that settings programs show.
QList<QStringList> keysOf(const QStringList &bindings)
{
    QList<QStringList> all;
    for (const QString &binding : bindings) {
        if (const QStringList keys = BindingKeys::fromGtk(binding); !keys.isEmpty())
            all.append(keys);
    }
    return all;
}

QStringList textsAt(GSettings *settings, GSettingsSchema *schema, const char *key)
{
    // To ask for a key that there is not would end the process.
    if (!g_settings_schema_has_key(schema, key))
        return {};
    return textsOf(Owned<GVariant>(g_settings_get_value(settings, key)).get());
}

QString summaryOf(GSettingsSchema *schema, const char *name, const char *catalogue)
{
    const Owned<GSettingsSchemaKey> key(g_settings_schema_get_key(schema, name));
    const char *summary = g_settings_schema_key_get_summary(key.get());
    if (!summary || !*summary)
        return QString::fromUtf8(name).replace(u'-', u' ');
    if (!catalogue)
        return QString::fromUtf8(summary);
    bind_textdomain_codeset(catalogue, "UTF-8");
    return QString::fromUtf8(dgettext(catalogue, summary));
}

bool holdsBinding(GSettingsSchema *schema, const char *name, const Family &family)
{
    // That is where the person's own are listed.
    if (family.custom.listKey && qstrcmp(name, family.custom.listKey) == 0)
        return false;
    const Owned<GSettingsSchemaKey> key(g_settings_schema_get_key(schema, name));
    return g_variant_type_equal(
        g_settings_schema_key_get_value_type(key.get()), G_VARIANT_TYPE(family.bindingType));
}

/// MATE has places for commands of the person's, whose names say no more than their number.
QString numberedCommand(const QString &key)
{
    const QString start = u"run-command-"_s;
    const auto schema = installedSchema("org.mate.Marco.keybinding-commands");
    if (!schema || !key.startsWith(start) || key.mid(start.size()).toInt() == 0)
        return {};
    const Owned<GSettings> commands(g_settings_new_full(schema.get(), nullptr, nullptr));
    return textsAt(commands.get(), schema.get(), key.mid(qstrlen("run-")).toUtf8().constData())
        .value(0);
}

QString titleOf(
    const Family &family, const Schema &chosen, GSettingsSchema *schema, const QString &key,
    const KeybindingTitles &titles)
{
    QString title = titles.title(QString::fromLatin1(chosen.id), key);
    if (title.isEmpty() && family.prefix == "cinnamon"_L1)
        title = cinnamonTitle(key);
    if (title.isEmpty() && family.prefix == "mate"_L1)
        title = commandTitle(numberedCommand(key));
    return title.isEmpty() ? summaryOf(schema, key.toUtf8().constData(), chosen.catalogue) : title;
}

void readSchema(
    const Family &family, const Schema &chosen, GSettingsSchema *schema,
    const KeybindingTitles &titles, SystemShortcutSettings &found)
{
    const Owned<GSettings> settings(g_settings_new_full(schema, nullptr, nullptr));
    const Owned<gchar *> names(g_settings_schema_list_keys(schema));
    QStringList sorted;
    for (gchar **name = names.get(); *name; ++name)
        sorted.append(QString::fromUtf8(*name));
    sorted.sort(); // the store gives them in no order
    const QString schemaId = QString::fromLatin1(chosen.id);
    for (const QString &name : sorted) {
        const QByteArray key = name.toUtf8();
        if (!holdsBinding(schema, key.constData(), family))
            continue;
        const QList<QStringList> keys = keysOf(textsAt(settings.get(), schema, key.constData()));
        const QString actionId = family.prefix + u':' + schemaId + u'/' + name;
        if (keys.isEmpty()) {
            found.withoutKeys.append(actionId);
            continue;
        }
        found.shortcuts.append(
            {actionId, titleOf(family, chosen, schema, name, titles), keys.first(),
             kindOfAction(name, chosen.kind), family.name, keys.sliced(1)});
    }
}

QStringList customPlaces(const CustomBindings &custom)
{
    QStringList places;
    if (!custom.listSchema) {
        for (int i = 0; i < mostNumberedPlaces; ++i)
            places.append(u"custom"_s + QString::number(i));
    } else if (const auto schema = installedSchema(custom.listSchema)) {
        const Owned<GSettings> list(g_settings_new_full(schema.get(), nullptr, nullptr));
        places = textsAt(list.get(), schema.get(), custom.listKey);
    }
    return places;
}

void readCustom(const Family &family, QList<SystemShortcut> &shortcuts)
{
    const CustomBindings &custom = family.custom;
    const auto entrySchema = installedSchema(custom.entrySchema);
    if (!entrySchema)
        return;
    const QStringList places = customPlaces(custom);
    for (const QString &place : places) {
        const QString path =
            QString::fromLatin1(custom.pathStart) + place + QString::fromLatin1(custom.pathEnd);
        // Any other would end the process.
        if (!path.startsWith(u'/') || !path.endsWith(u'/') || path.contains(u"//"_s))
            continue;
        if (shortcuts.size() >= ShortcutsJson::mostShortcuts)
            break;
        const Owned<GSettings> entry(
            g_settings_new_full(entrySchema.get(), nullptr, path.toUtf8().constData()));
        const auto text = [&](const char *key) {
            return textsAt(entry.get(), entrySchema.get(), key).value(0);
        };
        const QList<QStringList> keys = keysOf(textsAt(entry.get(), entrySchema.get(), "binding"));
        const QString name = text("name");
        const QString command = text(custom.commandKey);
        if (!keys.isEmpty())
            shortcuts.append(
                {family.prefix + u':' + path,
                 name.trimmed().isEmpty() ? commandTitle(command) : name, keys.first(),
                 kindOfAction(command, Kind::general), family.name, keys.sliced(1)});
    }
}

} // namespace

SystemShortcuts::Result readGnomeShortcuts(GnomeKin kin)
{
    const Family family = familyOf(kin);
    KeybindingTitles titles(family.catalogue);
    if (!family.settingsProgram.isEmpty())
        titles.addInstalled(family.settingsProgram);
    SystemShortcutSettings found;
    bool isInstalled = false;
    for (const Schema &chosen : family.schemas) {
        const auto schema = installedSchema(chosen.id);
        // Only what stands at a place of its own can be read without being told the place.
        if (!schema || !g_settings_schema_get_path(schema.get()))
            continue;
        isInstalled = true;
        readSchema(family, chosen, schema.get(), titles, found);
    }
    readCustom(family, found.shortcuts);
    return isInstalled ? SystemShortcuts::Result(found) : std::nullopt;
}

} // namespace hmatnik::platform
