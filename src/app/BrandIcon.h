#pragma once

#include <QIcon>

namespace hmatnik {

/// The program's mark: a white looped square on the blue badge, readable on light and dark panels.
/// Drawn at the size that is asked for, so that no panel has to scale it.
QIcon brandIcon();

} // namespace hmatnik
