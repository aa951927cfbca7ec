#pragma once

#include "platform/Desktop.h"

namespace hmatnik::platform {

/// A desktop that can do nothing and says why: preferences live in memory, no application is ever
/// in front, nothing is trusted. The program runs on it, and real desktops take single adapters
/// from it for what they lack.
/// @param reason Czech text that every adapter gives as its reason.
Desktop makeNullDesktop(const QString &reason);

} // namespace hmatnik::platform
