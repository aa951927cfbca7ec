#include "platform/linux/MenuUnits.h"

#include <QRectF>

#include <cmath>

namespace hmatnik::platform {

namespace {

constexpr int largestScale = 8;
/// Smaller units than pixels are nobody's; a little less comes of rounding.
constexpr double smallestScale = 0.95;
/// How much of what stands in a menu has to be inside its window: a long menu that scrolls shows
/// its first and last items in part.
constexpr double insideAtLeast = 0.8;
/// How much of the window's width that has to fill: the rest is an edge, or a shadow.
constexpr double filledAtLeast = 0.5;

QRectF scaled(const QRect &place, double scale)
{
    return {scale * place.x(), scale * place.y(), scale * place.width(), scale * place.height()};
}

double area(const QRectF &place)
{
    return place.width() * place.height();
}

double distance(const QRectF &a, const QRectF &b)
{
    return std::abs(a.left() - b.left()) + std::abs(a.top() - b.top()) +
           std::abs(a.right() - b.right()) + std::abs(a.bottom() - b.bottom());
}

} // namespace

std::optional<MenuUnits> MenuUnits::of(const QRect &menu, bool isWhole, const QRect &window)
{
    if (menu.isEmpty() || window.isEmpty())
        return std::nullopt;
    const QRectF there(window);
    if (isWhole) {
        // A menu is as large as its window. Where it lies need not be compared: on a second screen
        // a toolkit may count from that screen's corner.
        const double scale = there.width() / menu.width();
        const QRectF here = scaled(menu, scale);
        const double rounding = scale + 1;
        if (scale >= smallestScale && scale <= largestScale &&
            std::abs(here.height() - there.height()) <= rounding)
            return MenuUnits(scale, there.topLeft() - here.topLeft(), distance(here, there));
    }
    // Where only the items are known the scale is a whole number, as far as toolkits go that do so.
    std::optional<MenuUnits> best;
    for (int scale = 1; scale <= largestScale; ++scale) {
        const QRectF here = scaled(menu, scale);
        const MenuUnits units(scale, QPointF(), distance(here, there));
        if (area(here & there) >= insideAtLeast * area(here) &&
            here.width() >= filledAtLeast * there.width() &&
            (!best || units.m_misfit < best->m_misfit))
            best = units;
    }
    return best;
}

QPoint MenuUnits::fromPixels(QPoint pixel) const
{
    const QPointF place = (QPointF(pixel) - m_origin) / m_scale;
    return {static_cast<int>(std::floor(place.x())), static_cast<int>(std::floor(place.y()))};
}

} // namespace hmatnik::platform
