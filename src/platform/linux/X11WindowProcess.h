#pragma once

#include "platform/linux/X11Connection.h"

#include <cstdint>
#include <optional>

namespace hmatnik::platform {

/// The process of a window: the one that _NET_WM_PID names, unless the window comes from another
/// machine; for a window that names none, the one at the other end of its connection, if the
/// server knows it.
std::optional<std::int32_t> processOfWindow(X11Connection &connection, xcb_window_t window);

} // namespace hmatnik::platform
