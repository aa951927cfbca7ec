#pragma once

#include "model/Shortcut.h"

#include <QList>

namespace hmatnik {

/// The list without repeated shortcuts: of those that are equal in all fields, the first stays.
QList<Shortcut> uniqued(const QList<Shortcut> &shortcuts);

} // namespace hmatnik
