#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace hmatnik {

/// Where the window of the menu-bar item goes. Coordinates of the desktop, origin at the top left.
namespace MenuBarPlacement {

/// Distance of the window from the icon and from the edges of the work area, in layout units.
inline constexpr int gap = 6;

/// Top left corner of a window beside its icon: on the side of the icon that faces the middle of
/// the work area, centred on the icon as far as the work area allows.
/// @param icon the icon's place, on a panel or in the work area
QPoint besideIcon(const QRect &icon, const QRect &workArea, const QSize &window);

/// Top left corner of a window whose icon's place is not known: beside the pointer if that is on a
/// panel, and so on the icon; else in the corner of the work area that is nearest to the pointer.
QPoint nearPointer(const QPoint &pointer, const QRect &workArea, const QSize &window);

/// Top left corner of a window that is shown already, moved no farther than it takes to bring it
/// into the work area.
QPoint onScreen(const QRect &window, const QRect &workArea);

} // namespace MenuBarPlacement

} // namespace hmatnik
