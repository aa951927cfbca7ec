#pragma once

#include "model/Shortcut.h"
#include "platform/Accessibility.h"
#include "system/MenuImportError.h"

#include <QList>
#include <QString>

#include <cstdint>
#include <stop_token>
#include <variant>

namespace hmatnik {

/// Reads the menu bar of another application and turns its key equivalents into records.
class MenuShortcutImporter
{
public:
    /// The records in the order of the walk, or why there are none.
    using Result = std::variant<QList<Shortcut>, MenuImportError>;

    MenuShortcutImporter() = delete;

    /// Reads the menus of a process. Items come before the item that opens their submenu; a
    /// command that stands in two menus comes twice, with one id; a menu bar without key
    /// equivalents gives an empty list. Without permission the desktop is asked to grant it.
    ///
    /// Takes as long as the other process takes to answer; may be called from any thread but the
    /// main one.
    /// @param ownPid process id of this program, whose own menus are never read.
    /// @param appName name that the records carry.
    /// @param stop ends it early; what it gives then is of no use.
    static Result importFromApplication(
        platform::Accessibility &accessibility, std::int32_t ownPid, std::int32_t pid,
        const QString &appName, const std::stop_token &stop);
};

} // namespace hmatnik
