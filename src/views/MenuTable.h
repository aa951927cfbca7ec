#pragma once

#include <QChar>
#include <QList>
#include <QString>

namespace hmatnik {

/// What a command of the application menu does.
enum class MenuAction {
    Separator,
    About,
    ImportSystemShortcuts,
    Quit,
    Cut,
    Copy,
    Paste,
    SelectAll,
    Close,
    Minimize
};

/// One line of a menu.
struct MenuEntry
{
    QString title;
    MenuAction action = MenuAction::Separator;
    /// Letter pressed together with the command modifier (Ctrl on a PC keyboard); null for none.
    QChar key;

    bool operator==(const MenuEntry &other) const = default;
};

/// One menu of the menu bar.
struct MenuDefinition
{
    QString title;
    QList<MenuEntry> entries;

    bool operator==(const MenuDefinition &other) const = default;
};

/// The whole menu bar, left to right.
using MenuTable = QList<MenuDefinition>;

} // namespace hmatnik
