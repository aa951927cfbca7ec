#pragma once

#include "platform/SystemShortcuts.h"

#include <QString>

namespace hmatnik::platform {

/// What an action acts on, judged by the name that its desktop has for it in its settings, which is
/// English everywhere, or by the command that it starts.
/// @param otherwise for names that tell nothing.
SystemShortcut::Kind kindOfAction(const QString &name, SystemShortcut::Kind otherwise);

} // namespace hmatnik::platform
