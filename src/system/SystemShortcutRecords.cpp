#include "system/SystemShortcutRecords.h"

#include <QHash>
#include <QSet>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

Shortcut::Category categoryOf(platform::SystemShortcut::Kind kind)
{
    using Kind = platform::SystemShortcut::Kind;
    switch (kind) {
    case Kind::general:
        break;
    case Kind::windows:
        return Shortcut::Category::okna;
    case Kind::files:
        return Shortcut::Category::finder;
    case Kind::screenshots:
        return Shortcut::Category::snimky;
    case Kind::browser:
        return Shortcut::Category::prohlizec;
    }
    return Shortcut::Category::zaklady;
}

const auto idPrefix = u"system-"_s;

QString idSuffix(const QStringList &keys)
{
    return u'-' + keys.join(QString());
}

} // namespace

QList<Shortcut> recordsOf(const QList<platform::SystemShortcut> &shortcuts)
{
    QList<Shortcut> records;
    records.reserve(shortcuts.size());
    for (const platform::SystemShortcut &shortcut : shortcuts) {
        records.append(
            {.id = idPrefix + shortcut.actionId + idSuffix(shortcut.keys),
             .title = shortcut.title,
             .keys = shortcut.keys,
             .category = categoryOf(shortcut.kind),
             .apps = {},
             .detail = u"Načteno z nastavení plochy "_s + shortcut.desktop + u'.'});
    }
    return records;
}

QString actionOf(const Shortcut &record)
{
    if (!record.id.startsWith(idPrefix))
        return {};
    const QString suffix = idSuffix(record.keys);
    const QStringView action = QStringView(record.id).sliced(idPrefix.size());
    return action.endsWith(suffix) ? action.chopped(suffix.size()).toString() : QString();
}

QList<std::pair<Shortcut, Shortcut>>
takeKeys(QList<Shortcut> &records, const QList<platform::SystemShortcut> &shortcuts)
{
    QHash<QString, const platform::SystemShortcut *> known;
    for (const platform::SystemShortcut &shortcut : shortcuts)
        known.insert(shortcut.actionId, &shortcut);
    QSet<QString> ids;
    for (const Shortcut &record : std::as_const(records))
        ids.insert(record.id);
    QList<std::pair<Shortcut, Shortcut>> changes;
    for (Shortcut &record : records) {
        const QString action = actionOf(record);
        const platform::SystemShortcut *now = action.isEmpty() ? nullptr : known.value(action);
        if (!now || now->keys == record.keys || now->otherKeys.contains(record.keys))
            continue;
        const QString id = idPrefix + action + idSuffix(now->keys);
        if (ids.contains(id)) // imported as well, after an earlier change
            continue;
        ids.insert(id);
        const Shortcut before = record;
        record.keys = now->keys;
        record.id = id;
        changes.append({before, record});
    }
    return changes;
}

} // namespace hmatnik
