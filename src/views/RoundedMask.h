#pragma once

#include <QPainterPath>
#include <QRegion>
#include <QSize>

namespace hmatnik {

/// The shape of a window with round corners: without a compositor a transparent corner would be
/// black.
inline QRegion roundedMask(const QSize &size, double radius)
{
    QPainterPath outline;
    outline.addRoundedRect(QRectF(QPointF(0, 0), size), radius, radius);
    return {outline.toFillPolygon().toPolygon()};
}

} // namespace hmatnik
