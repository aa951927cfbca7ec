#pragma once

#include "model/Shortcut.h"

#include <QList>
#include <QStringList>

namespace hmatnik {

/// The shortcuts of a library whose id is listed, in the library's order. Ids that the library
/// lacks are skipped.
QList<Shortcut> shortcutsById(const QList<Shortcut> &library, const QStringList &ids);

} // namespace hmatnik
