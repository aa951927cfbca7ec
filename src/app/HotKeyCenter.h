#pragma once

#include "platform/HotKeys.h"

namespace hmatnik {

/// The global hot key Control + Option + Space, which opens the main window from any program.
namespace HotKeyCenter {

/// Registers the hot key, at most once per process however often it is called. Taken by another
/// program, it silently does nothing.
void install(platform::HotKeys &hotKeys);

} // namespace HotKeyCenter

} // namespace hmatnik
