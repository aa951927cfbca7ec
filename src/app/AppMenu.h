#pragma once

#include "views/MenuTable.h"

namespace hmatnik {

/// The application's main menu.
namespace AppMenu {

/// The three menus with their commands and keys.
MenuTable table();

} // namespace AppMenu

} // namespace hmatnik
