#include "views/Surface.h"

#include "views/SurfaceTextures.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTransformNode>

#include <array>
#include <cmath>

namespace hmatnik {

namespace {

/// One direction of the picture, cut where it may be stretched. All in whole pixels.
struct Cuts
{
    /// Edges of the pieces, from the surface's own edge.
    std::array<int, 4> target{};
    /// The same edges in the picture.
    std::array<int, 4> source{};
    int pieces = 1;
};

Cuts cut(int before, int after, int wanted, int drawn)
{
    Cuts cuts;
    if (wanted <= drawn) {
        cuts.target = {-before, wanted + after};
        cuts.source = {0, before + drawn + after};
        return cuts;
    }
    const int half = (drawn - 1) / 2;
    cuts.pieces = 3;
    cuts.target = {-before, half, wanted - half, wanted + after};
    cuts.source = {0, before + half, before + half + 1, before + drawn + after};
    return cuts;
}

/// The pixel that an edge falls on. A hair more than the half, so that edges which lie between two
/// pixels all go the same way, whatever the last digit of where they were computed to be.
double snapped(double edge)
{
    return std::floor(edge + 0.501);
}

/// Where an item's own coordinates end up in the window.
QMatrix4x4 matrixAbove(const QSGNode &node)
{
    QMatrix4x4 result;
    for (const QSGNode *above = node.parent(); above; above = above->parent()) {
        if (above->type() == QSGNode::TransformNodeType)
            result = static_cast<const QSGTransformNode *>(above)->matrix() * result;
    }
    return result;
}

/// The pieces of a surface, in pixels. Layouts put items between pixels wherever columns share a
/// width or the screen is scaled by a fraction, and scrolling moves them after that; so it looks
/// before every frame where it is, and goes to the nearest whole pixels, in whole pixels' size.
class SnappedPieces final : public QSGTransformNode
{
public:
    explicit SnappedPieces(QQuickWindow &window)
        : m_window(window)
    {
        setFlag(UsePreprocess);
    }

    void setLook(const SurfaceLook &look, const QSizeF &size)
    {
        m_look = look;
        m_size = size;
        m_pixels = QSize();
    }

    void preprocess() override
    {
        const double ratio = m_window.effectiveDevicePixelRatio();
        const QMatrix4x4 above = matrixAbove(*this);
        const QPointF origin = above.map(QPointF(0, 0)) * ratio;
        const QPointF unit = above.map(QPointF(1, 1)) * ratio - origin;
        if (unit.x() <= 0 || unit.y() <= 0)
            return;
        const QSize pixels(
            static_cast<int>(snapped(m_size.width() * unit.x())),
            static_cast<int>(snapped(m_size.height() * unit.y())));
        if (pixels != m_pixels || ratio != m_ratio) {
            m_pixels = pixels;
            m_ratio = ratio;
            arrange();
        }
        QMatrix4x4 toPixels;
        toPixels.scale(static_cast<float>(1 / unit.x()), static_cast<float>(1 / unit.y()));
        toPixels.translate(
            static_cast<float>(snapped(origin.x()) - origin.x()),
            static_cast<float>(snapped(origin.y()) - origin.y()));
        if (toPixels != matrix())
            setMatrix(toPixels);
    }

private:
    void arrange()
    {
        QSGTexture *texture = SurfaceTextures::of(m_window).texture(m_look, m_pixels, m_ratio);
        const QMargins margins = SurfaceImage::shadowMargins(m_look, m_ratio);
        const QSize drawn = SurfaceImage::drawnSize(m_look, m_pixels, m_ratio);
        const Cuts columns = cut(margins.left(), margins.right(), m_pixels.width(), drawn.width());
        const Cuts rows = cut(margins.top(), margins.bottom(), m_pixels.height(), drawn.height());

        const int wanted = columns.pieces * rows.pieces;
        while (childCount() > wanted)
            delete lastChild();
        while (childCount() < wanted) {
            // The software renderer reads a node's texture as soon as the node joins the tree.
            QSGImageNode *piece = m_window.createImageNode();
            piece->setTexture(texture);
            appendChildNode(piece);
        }

        QSGNode *child = firstChild();
        for (size_t row = 0; row < static_cast<size_t>(rows.pieces); ++row) {
            for (size_t column = 0; column < static_cast<size_t>(columns.pieces); ++column) {
                auto *piece = static_cast<QSGImageNode *>(child);
                piece->setTexture(texture);
                piece->setOwnsTexture(false);
                piece->setFiltering(QSGTexture::Nearest);
                piece->setRect(QRectF(
                    QPointF(columns.target[column], rows.target[row]),
                    QPointF(columns.target[column + 1], rows.target[row + 1])));
                piece->setSourceRect(QRectF(
                    QPointF(columns.source[column], rows.source[row]),
                    QPointF(columns.source[column + 1], rows.source[row + 1])));
                child = child->nextSibling();
            }
        }
    }

    QQuickWindow &m_window;
    SurfaceLook m_look;
    /// Of the item, in layout units.
    QSizeF m_size;
    /// As arranged; none when the look has changed since.
    QSize m_pixels;
    double m_ratio = 1;
};

} // namespace

Surface::Surface(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void Surface::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size()) {
        m_lookDirty = true;
        update();
    }
}

QSGNode *Surface::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    if (width() <= 0 || height() <= 0) {
        delete oldNode;
        return nullptr;
    }
    auto *pieces = static_cast<SnappedPieces *>(oldNode);
    if (!pieces)
        pieces = new SnappedPieces(*window());
    else if (!m_lookDirty)
        return pieces;
    m_lookDirty = false;
    pieces->setLook(m_look, size());
    return pieces;
}

} // namespace hmatnik
