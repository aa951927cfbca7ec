#include "views/SymbolTable.h"

#include <algorithm>
#include <array>

namespace hmatnik::SymbolTable {

namespace {

struct Entry
{
    QLatin1StringView name;
    char16_t glyph = 0;
};

constexpr std::array entries{
    Entry{QLatin1StringView("arrow.down.circle.fill"), 0xf181},
    Entry{QLatin1StringView("arrow.uturn.backward.circle.fill"), 0xe166},
    Entry{QLatin1StringView("brain.head.profile"), 0xea4a},
    Entry{QLatin1StringView("camera.viewfinder"), 0xe412},
    Entry{QLatin1StringView("checkmark.circle.fill"), 0xe86c},
    Entry{QLatin1StringView("chevron.up.chevron.down"), 0xe5d7},
    Entry{QLatin1StringView("clock.arrow.circlepath"), 0xe889},
    Entry{QLatin1StringView("command"), u'⌘'},
    Entry{QLatin1StringView("cross.case.fill"), 0xf109},
    Entry{QLatin1StringView("exclamationmark.shield.fill"), 0xf014},
    Entry{QLatin1StringView("exclamationmark.triangle.fill"), 0xe002},
    Entry{QLatin1StringView("flame.fill"), 0xef55},
    Entry{QLatin1StringView("folder"), 0xe2c8},
    Entry{QLatin1StringView("gearshape"), 0xe8b8},
    Entry{QLatin1StringView("globe"), 0xe894},
    Entry{QLatin1StringView("keyboard"), 0xe312},
    Entry{QLatin1StringView("keyboard.badge.ellipsis"), 0xe312},
    Entry{QLatin1StringView("macwindow"), 0xe069},
    Entry{QLatin1StringView("macwindow.on.rectangle"), 0xe3e0},
    Entry{QLatin1StringView("magnifyingglass"), 0xe8b6},
    Entry{QLatin1StringView("magnifyingglass.circle.fill"), 0xe8b6},
    Entry{QLatin1StringView("plus"), 0xe145},
    Entry{QLatin1StringView("rectangle.and.hand.point.up.left"), 0xe913},
    Entry{QLatin1StringView("sparkles"), 0xe65f},
    Entry{QLatin1StringView("square.and.arrow.down"), 0xf090},
    Entry{QLatin1StringView("square.grid.2x2"), 0xe5c3},
    Entry{QLatin1StringView("star"), 0xe83a},
    Entry{QLatin1StringView("star.fill"), 0xe838},
    Entry{QLatin1StringView("sun.max.fill"), 0xe518},
    Entry{QLatin1StringView("text.cursor"), 0xe262},
    Entry{QLatin1StringView("trash"), 0xe92e},
    Entry{QLatin1StringView("trophy.fill"), 0xea23},
    Entry{QLatin1StringView("xmark"), 0xe5cd},
    Entry{QLatin1StringView("xmark.circle.fill"), 0xe5c9},
};

} // namespace

QString glyph(const QString &name)
{
    const auto found =
        std::ranges::find_if(entries, [&name](const Entry &entry) { return name == entry.name; });
    return found == entries.end() ? QString() : QString(QChar(found->glyph));
}

bool isTextGlyph(const QString &name)
{
    return name == QLatin1StringView("command");
}

QStringList names()
{
    QStringList result;
    for (const Entry &entry : entries)
        result.append(QString(entry.name));
    return result;
}

} // namespace hmatnik::SymbolTable
