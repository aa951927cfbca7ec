#include "platform/linux/shortcuts/KdeShortcuts.h"

#include "platform/linux/shortcuts/ActionKind.h"
#include "platform/linux/shortcuts/BindingKeys.h"
#include "platform/linux/shortcuts/CommandTitle.h"
#include "platform/linux/shortcuts/SessionBus.h"
#include "platform/linux/shortcuts/SettingsFile.h"
#include "platform/linux/shortcuts/ShortcutsJson.h"

#include <QHash>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

using Kind = SystemShortcut::Kind;

constexpr const char *service = "org.kde.kglobalaccel";
constexpr int mostComponents = 1000;

void add(
    SystemShortcutSettings &settings, const QString &component, const QString &action,
    const QString &title, const QList<QStringList> &keys)
{
    const QString actionId = u"kde:"_s + component + u'/' + action;
    if (keys.isEmpty()) {
        if (settings.withoutKeys.size() < ShortcutsJson::mostShortcuts)
            settings.withoutKeys.append(actionId);
        return;
    }
    if (settings.shortcuts.size() >= ShortcutsJson::mostShortcuts)
        return;
    const bool isWindows = component == "kwin"_L1 || component == "plasmashell"_L1;
    const Kind kind =
        kindOfAction(component + u'/' + action, isWindows ? Kind::windows : Kind::general);
    settings.shortcuts.append(
        {actionId, title.isEmpty() ? action : title, keys.first(), kind, u"KDE"_s, keys.sliced(1)});
}

/// Keys as the service sends them: numbers, or in its later versions sequences of them, of which
/// only those of one stroke count.
QList<QStringList> keysOf(GVariant *value)
{
    QList<QStringList> all;
    for (gsize i = 0; i < g_variant_n_children(value); ++i) {
        const Owned<GVariant> child(g_variant_get_child_value(value, i));
        Owned<GVariant> stroke(g_variant_ref(child.get()));
        while (g_variant_is_container(stroke.get())) {
            if (g_variant_n_children(stroke.get()) == 0)
                return all;
            stroke.reset(g_variant_get_child_value(stroke.get(), 0));
        }
        if (!g_variant_is_of_type(stroke.get(), G_VARIANT_TYPE_INT32))
            return all;
        const QStringList keys = BindingKeys::fromQtKey(g_variant_get_int32(stroke.get()));
        if (!keys.isEmpty())
            all.append(keys);
    }
    return all;
}

QString textAt(GVariant *tuple, gsize index)
{
    const Owned<GVariant> text(g_variant_get_child_value(tuple, index));
    return QString::fromUtf8(g_variant_get_string(text.get(), nullptr));
}

void addComponent(GVariant *answer, SystemShortcutSettings &settings)
{
    const Owned<GVariant> infos(g_variant_get_child_value(answer, 0));
    const gsize count = g_variant_n_children(infos.get());
    for (gsize i = 0; i < count; ++i) {
        // Action and its name, component and its name, context and its name, keys, default keys.
        const Owned<GVariant> info(g_variant_get_child_value(infos.get(), i));
        const Owned<GVariant> combinations(g_variant_get_child_value(info.get(), 6));
        add(settings, textAt(info.get(), 2), textAt(info.get(), 0), textAt(info.get(), 1),
            keysOf(combinations.get()));
    }
}

SystemShortcuts::Result askService()
{
    const SessionBus bus;
    const auto components = bus.call(
        service, "/kglobalaccel", "org.kde.KGlobalAccel", "allComponents", nullptr, "(ao)");
    if (!components)
        return std::nullopt;
    SystemShortcutSettings settings;
    const Owned<GVariant> paths(g_variant_get_child_value(components.get(), 0));
    const gsize count = g_variant_n_children(paths.get());
    for (gsize i = 0; i < count && i < mostComponents; ++i) {
        const Owned<GVariant> path(g_variant_get_child_value(paths.get(), i));
        const auto infos = bus.call(
            service, g_variant_get_string(path.get(), nullptr), "org.kde.kglobalaccel.Component",
            "allShortcutInfos", nullptr, nullptr);
        if (!infos)
            return std::nullopt;
        const bool isKnown =
            g_variant_is_of_type(infos.get(), G_VARIANT_TYPE("(a(ssssssaiai))")) ||
            g_variant_is_of_type(infos.get(), G_VARIANT_TYPE("(a(ssssssa(ai)a(ai)))")) ||
            g_variant_is_of_type(infos.get(), G_VARIANT_TYPE("(a(ssssssa(iiii)a(iiii)))"));
        if (!isKnown)
            return std::nullopt;
        addComponent(infos.get(), settings);
    }
    return settings;
}

/// A value of the file, split at commas that are not part of a text.
QStringList fieldsOf(const QString &value)
{
    QStringList fields{QString()};
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        if (c == u'\\' && i + 1 < value.size()) {
            const QChar escaped = value[++i];
            fields.last() += escaped == u't' ? QChar(u'\t') : escaped;
        } else if (c == u',') {
            fields.append(QString());
        } else {
            fields.last() += c;
        }
    }
    return fields;
}

/// Of a component that is a program's desktop entry: "org.kde.konsole.desktop".
QString programTitle(const QString &component)
{
    QString name = component;
    if (name.endsWith(".desktop"_L1))
        name.chop(qstrlen(".desktop"));
    return commandTitle(name.section(u'.', -1));
}

QList<QStringList> allKeys(const QString &sequences)
{
    QList<QStringList> all;
    const QStringList texts = sequences.split(u'\t');
    for (const QString &text : texts) {
        if (const QStringList keys = BindingKeys::fromQt(text); !keys.isEmpty())
            all.append(keys);
    }
    return all;
}

} // namespace

SystemShortcutSettings kdeShortcutsInFile(const QByteArray &text)
{
    SystemShortcutSettings settings;
    QString component;
    QHash<QString, QString> names;
    const QStringList lines = QString::fromUtf8(text).split(u'\n');
    for (const QString &line : lines) {
        if (line.startsWith(u'[')) {
            // "[kwin]", "[services][org.kde.konsole.desktop]"
            const QString group = line.trimmed();
            component = group.endsWith(u']') ? group.sliced(1, group.size() - 2) : QString();
            component.replace(u"]["_s, u"/"_s);
            // The service names programs without that.
            if (component.startsWith("services/"_L1))
                component.remove(0, qstrlen("services/"));
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (equals <= 0 || component.isEmpty())
            continue;
        const QString action = line.left(equals).trimmed();
        const QStringList fields = fieldsOf(line.mid(equals + 1).trimmed());
        if (action == "_k_friendly_name"_L1) {
            names.insert(component, fields.value(0));
            continue;
        }
        QString title = fields.value(2);
        if (title.isEmpty())
            title =
                action.startsWith(u'_') ? names.value(component, programTitle(component)) : action;
        add(settings, component, action, title, allKeys(fields.value(0)));
    }
    return settings;
}

SystemShortcuts::Result readKdeShortcuts()
{
    if (auto settings = askService())
        return settings;
    if (const auto text = readSettingsFile(u"kglobalshortcutsrc"_s))
        return kdeShortcutsInFile(*text);
    return std::nullopt;
}

} // namespace hmatnik::platform
