#include "system/SystemShortcutRecords.h"

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

} // namespace

QList<Shortcut> recordsOf(const QList<platform::SystemShortcut> &shortcuts)
{
    QList<Shortcut> records;
    records.reserve(shortcuts.size());
    for (const platform::SystemShortcut &shortcut : shortcuts) {
        records.append(
            {.id = u"system-"_s + shortcut.actionId + u'-' + shortcut.keys.join(QString()),
             .title = shortcut.title,
             .keys = shortcut.keys,
             .category = categoryOf(shortcut.kind),
             .apps = {},
             .detail = u"Načteno z nastavení plochy "_s + shortcut.desktop + u'.'});
    }
    return records;
}

} // namespace hmatnik
