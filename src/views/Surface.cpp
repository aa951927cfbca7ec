#include "views/Surface.h"

#include "views/SurfaceTextures.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <array>

namespace hmatnik {

namespace {

/// One direction of the picture, cut where it may be stretched.
struct Cuts
{
    /// Edges of the pieces on the screen, in layout units from the item's origin.
    std::array<double, 4> target{};
    /// The same edges in the picture, in pixels.
    std::array<double, 4> source{};
    int pieces = 1;
};

Cuts cut(double before, double after, double wanted, double drawn, double devicePixelRatio)
{
    Cuts cuts;
    if (wanted <= drawn) {
        cuts.target = {-before, wanted + after};
        cuts.source = {0, (before + drawn + after) * devicePixelRatio};
        return cuts;
    }
    const double half = (drawn - 1) / 2;
    cuts.pieces = 3;
    cuts.target = {-before, half, wanted - half, wanted + after};
    cuts.source = {
        0, (before + half) * devicePixelRatio, (before + half + 1) * devicePixelRatio,
        (before + drawn + after) * devicePixelRatio};
    return cuts;
}

} // namespace

Surface::Surface(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void Surface::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemDevicePixelRatioHasChanged) {
        m_lookDirty = true;
        update();
    }
    QQuickItem::itemChange(change, value);
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
    if (oldNode && !m_lookDirty)
        return oldNode;
    m_lookDirty = false;

    const double ratio = window()->effectiveDevicePixelRatio();
    QSGTexture *texture = SurfaceTextures::of(*window()).texture(m_look, size(), ratio);
    const QMargins margins = SurfaceImage::shadowMargins(m_look);
    const QSizeF drawn = SurfaceImage::drawnSize(m_look, size());
    const Cuts columns = cut(margins.left(), margins.right(), width(), drawn.width(), ratio);
    const Cuts rows = cut(margins.top(), margins.bottom(), height(), drawn.height(), ratio);

    QSGNode *root = oldNode ? oldNode : new QSGNode;
    const int wanted = columns.pieces * rows.pieces;
    while (root->childCount() > wanted)
        delete root->lastChild();
    while (root->childCount() < wanted) {
        // The software renderer reads a node's texture as soon as the node joins the tree.
        QSGImageNode *piece = window()->createImageNode();
        piece->setTexture(texture);
        root->appendChildNode(piece);
    }

    QSGNode *child = root->firstChild();
    for (size_t row = 0; row < static_cast<size_t>(rows.pieces); ++row) {
        for (size_t column = 0; column < static_cast<size_t>(columns.pieces); ++column) {
            auto *piece = static_cast<QSGImageNode *>(child);
            piece->setTexture(texture);
            piece->setOwnsTexture(false);
            piece->setFiltering(QSGTexture::Linear);
            piece->setRect(QRectF(
                QPointF(columns.target[column], rows.target[row]),
                QPointF(columns.target[column + 1], rows.target[row + 1])));
            piece->setSourceRect(QRectF(
                QPointF(columns.source[column], rows.source[row]),
                QPointF(columns.source[column + 1], rows.source[row + 1])));
            child = child->nextSibling();
        }
    }
    return root;
}

} // namespace hmatnik
