#pragma once

#include "platform/Desktop.h"

namespace hmatnik::platform {

/// What this Linux desktop can do, found out as it runs: whatever it lacks is filled by the
/// adapter that says why. Call it on the main thread, once the application object exists.
Desktop makeLinuxDesktop();

} // namespace hmatnik::platform
