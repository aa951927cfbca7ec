#pragma once

#include <QString>

namespace hmatnik {

/// Why the menus of another application could not be read.
enum class MenuImportError {
    /// This program may not look into others.
    permission,
    /// There is no other application to read.
    application,
    /// The application has no menu bar that can be read.
    menu,
};

/// What to tell the person, in Czech.
QString localizedDescription(MenuImportError error);

} // namespace hmatnik
