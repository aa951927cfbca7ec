#pragma once

#include "model/Shortcut.h"
#include "platform/SystemShortcuts.h"

#include <QList>

namespace hmatnik {

/// The desktop's own shortcuts as records, in their order: of no application, in the category of
/// what they act on, with ids that begin with "system-".
QList<Shortcut> recordsOf(const QList<platform::SystemShortcut> &shortcuts);

} // namespace hmatnik
