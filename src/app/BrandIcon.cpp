#include "app/BrandIcon.h"

#include "views/BrandColors.h"

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

/// Three quarters of a circle, from one side of the square around its corner to the next side.
/// @param start where it leaves the first side, in Qt's degrees
void addLoop(QPainterPath &path, const QPointF &centre, double radius, double start)
{
    path.arcTo(
        QRectF(centre - QPointF(radius, radius), centre + QPointF(radius, radius)), start, 270);
}

/// A square whose sides run on past its corners into loops.
QPainterPath loopedSquare(const QPointF &middle, double half, double radius)
{
    const double reach = half + radius;
    QPainterPath path(middle + QPointF(-half, 0));
    addLoop(path, middle + QPointF(-reach, -reach), radius, 0);
    addLoop(path, middle + QPointF(reach, -reach), radius, 270);
    addLoop(path, middle + QPointF(reach, reach), radius, 180);
    addLoop(path, middle + QPointF(-reach, reach), radius, 90);
    path.closeSubpath();
    return path;
}

void drawBadge(QPainter &painter, const QRectF &square)
{
    const double side = square.width();
    QLinearGradient gradient(square.topLeft(), square.bottomLeft());
    gradient.setColorAt(0, QColor(BrandColors::top));
    gradient.setColorAt(1, QColor(BrandColors::bottom));
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
