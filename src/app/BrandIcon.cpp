#include "app/BrandIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <algorithm>

namespace hmatnik {

namespace {

// The badge's corner radius and the mark's measures, as parts of the badge's side.
constexpr double cornerRadius = 0.25;
constexpr double halfSquare = 0.0975;
constexpr double loopRadius = 0.0975;
constexpr double strokeWidth = 0.08;

// Panels are 16 to 64 pixels high, twice that on dense screens.
constexpr int panelSizes[] = {16, 22, 24, 32, 44, 48, 64};

/// One arm of the looped square: from the middle of a side around the loop in its corner to the
/// middle of the next side.
/// @param start angle, counted as Qt does, at which the loop leaves the vertical side
void addLoop(QPainterPath &path, const QPointF &centre, double radius, double start, double sweep)
{
    const QRectF loop(centre - QPointF(radius, radius), centre + QPointF(radius, radius));
    path.arcTo(loop, start, sweep);
}

/// A square whose sides run on past its corners into loops.
QPainterPath loopedSquare(const QPointF &middle, double half, double radius)
{
    const double reach = half + radius;
    QPainterPath path(middle + QPointF(-half, 0));
    addLoop(path, middle + QPointF(-reach, -reach), radius, 0, 270);
    addLoop(path, middle + QPointF(reach, -reach), radius, 270, 270);
    addLoop(path, middle + QPointF(reach, reach), radius, 180, 270);
    addLoop(path, middle + QPointF(-reach, reach), radius, 90, 270);
    path.closeSubpath();
    return path;
}

void drawBadge(QPainter &painter, const QRectF &square)
{
    const double side = square.width();
    QLinearGradient gradient(square.topLeft(), square.bottomLeft());
    gradient.setColorAt(0, QColor(0x3D, 0x9B, 0xFF));
    gradient.setColorAt(1, QColor(0x00, 0x66, 0xE0));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawRoundedRect(square, side * cornerRadius, side * cornerRadius);

    QPen pen(Qt::white, std::max(1.0, side * strokeWidth));
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(loopedSquare(square.center(), side * halfSquare, side * loopRadius));
}

class BrandIconEngine final : public QIconEngine
{
public:
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override
    {
        const int side = std::min(rect.width(), rect.height());
        QRect square(0, 0, side, side);
        square.moveCenter(rect.center());
        painter->save();
        drawBadge(*painter, square);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        QList<QSize> sizes;
        for (const int side : panelSizes)
            sizes.append(QSize(side, side));
        return sizes;
    }

    QSize actualSize(const QSize &size, QIcon::Mode, QIcon::State) override { return size; }

    QIconEngine *clone() const override { return new BrandIconEngine; }
};

} // namespace

QIcon brandIcon()
{
    return QIcon(new BrandIconEngine);
}

} // namespace hmatnik
