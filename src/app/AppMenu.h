#pragma once

#include "views/MenuTable.h"

namespace hmatnik {

/// The application's main menu.
namespace AppMenu {

/// Whether the desktop's own shortcuts can be read.
enum class DesktopShortcuts { Absent, Offered };

/// The three menus with their commands and keys. Where the desktop's own shortcuts can be read, the
/// first has a command for that.
MenuTable table(DesktopShortcuts desktopShortcuts = DesktopShortcuts::Absent);

} // namespace AppMenu

} // namespace hmatnik
