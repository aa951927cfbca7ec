#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace hmatnik {

/// Where the floating panel goes.
namespace PanelPlacement {

/// Distance of the panel from the edges of the work area, in layout units.
inline constexpr int inset = 22;

/// Top left corner of a panel in the top right corner of a work area (the screen without panels
/// and docks), in the desktop's coordinates with their origin at the top left.
QPoint topRight(const QRect &workArea, const QSize &panel);

} // namespace PanelPlacement

} // namespace hmatnik
