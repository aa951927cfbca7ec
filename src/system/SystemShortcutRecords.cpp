#include "system/SystemShortcutRecords.h"

#include <QHash>

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
    QList<std::pair<Shortcut, Shortcut>> changes;
    for (Shortcut &record : records) {
        const platform::SystemShortcut *now = known.value(actionOf(record));
        if (!now || now->keys == record.keys || now->otherKeys.contains(record.keys))
            continue;
        const Shortcut before = record;
        record.keys = now->keys;
        record.id = idPrefix + now->actionId + idSuffix(now->keys);
        changes.append({before, record});
    }
    return changes;
}

} // namespace hmatnik
