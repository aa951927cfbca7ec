#pragma once

#include "platform/DesktopKind.h"

#include <QString>

namespace hmatnik::platform {

/// The family that a desktop belongs to.
/// @param currentDesktop as XDG_CURRENT_DESKTOP has it: names separated by colons, the most
///     specific first
DesktopFamily desktopFamily(const QString &currentDesktop);

} // namespace hmatnik::platform
