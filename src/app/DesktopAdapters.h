#pragma once

#include "platform/Desktop.h"

namespace hmatnik {

/// The adapters for the desktop that the program runs on, chosen at run time. The one place that
/// knows which platforms there are.
platform::Desktop makeDesktop();

} // namespace hmatnik
