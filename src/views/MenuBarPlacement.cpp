#include "views/MenuBarPlacement.h"

#include <algorithm>

namespace hmatnik {

namespace {

/// The nearest position to the wanted one at which the window is inside; a window that is too
/// large keeps its beginning inside.
int inside(int wanted, int length, int areaBegin, int areaLength)
{
    const int first = areaBegin + MenuBarPlacement::gap;
    const int last = areaBegin + areaLength - MenuBarPlacement::gap - length;
    return std::max(first, std::min(wanted, last));
}

QPoint inside(const QPoint &wanted, const QSize &window, const QRect &area)
{
    return {
        inside(wanted.x(), window.width(), area.x(), area.width()),
        inside(wanted.y(), window.height(), area.y(), area.height())};
}

} // namespace

QPoint MenuBarPlacement::besideIcon(const QRect &icon, const QRect &workArea, const QSize &window)
{
    const QPoint middle = icon.center();
    QPoint wanted = middle - QPoint(window.width() / 2, window.height() / 2);
    const bool isLeft = middle.x() < workArea.left();
    const bool isRight = middle.x() > workArea.right();
    if (isLeft)
        wanted.setX(icon.x() + icon.width() + gap);
    else if (isRight)
        wanted.setX(icon.x() - gap - window.width());
    else if (middle.y() < workArea.center().y())
        wanted.setY(icon.y() + icon.height() + gap);
    else
        wanted.setY(icon.y() - gap - window.height());
    return inside(wanted, window, workArea);
}

QPoint
MenuBarPlacement::nearPointer(const QPoint &pointer, const QRect &workArea, const QSize &window)
{
    if (!workArea.contains(pointer))
        return besideIcon(QRect(pointer, QSize(1, 1)), workArea, window);
    const QPoint middle = workArea.center();
    return inside(
        {pointer.x() < middle.x() ? workArea.left() : workArea.right(),
         pointer.y() < middle.y() ? workArea.top() : workArea.bottom()},
        window, workArea);
}

QPoint MenuBarPlacement::onScreen(const QRect &window, const QRect &workArea)
{
    return inside(window.topLeft(), window.size(), workArea);
}

} // namespace hmatnik
