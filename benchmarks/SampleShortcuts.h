#pragma once

#include "model/Shortcut.h"

#include <QList>

namespace hmatnik {

/// Custom records as imports of many menus leave them: titles and details of usual length, each
/// text its own, the built-in words mixed. The same ones at every call.
QList<Shortcut> sampleShortcuts(qsizetype count);

} // namespace hmatnik
