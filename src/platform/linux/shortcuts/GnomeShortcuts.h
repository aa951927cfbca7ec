#pragma once

#include "platform/SystemShortcuts.h"

namespace hmatnik::platform {

/// A desktop that keeps its shortcuts in GSettings.
enum class GnomeKin { gnome, cinnamon, mate };

/// The shortcuts of GNOME and its kin. None if no schema of the desktop is installed. May start
/// threads of the settings store, so it is for a process of its own.
SystemShortcuts::Result readGnomeShortcuts(GnomeKin kin);

} // namespace hmatnik::platform
