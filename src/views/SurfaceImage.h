#pragma once

#include <QColor>
#include <QImage>
#include <QMargins>
#include <QSize>

namespace hmatnik {

/// What a rounded surface looks like. Lengths in layout units.
struct SurfaceLook
{
    double radius = 14;
    QColor fill;
    QColor stroke;
    double strokeWidth = 1;
    /// Tight shadow, one unit down; a transparent colour draws none.
    QColor edgeShadow;
    /// Wide shadow; a transparent colour draws none.
    QColor wideShadow;
    /// Standard deviation of the wide shadow's blur, and how far below the surface it lies.
    double wideShadowBlur = 9;
    double wideShadowOffset = 6;

    bool operator==(const SurfaceLook &other) const = default;
};

size_t qHash(const SurfaceLook &look, size_t seed = 0) noexcept;

/// Draws a surface as a picture whose middle can be stretched, so that surfaces of one look share
/// one picture whatever their size. Along an axis that is too short for that, it is drawn exactly.
/// Everything is measured in whole pixels, so that no edge falls between two of them.
class SurfaceImage
{
public:
    /// How far the shadow reaches beyond the surface, in pixels.
    /// @param devicePixelRatio pixels per layout unit
    static QMargins shadowMargins(const SurfaceLook &look, double devicePixelRatio);

    /// The surface, in pixels, that the picture for a wanted one shows: the wanted size, but along
    /// each axis at most what is needed for the middle to be stretched, an odd number.
    static QSize drawnSize(const SurfaceLook &look, const QSize &wanted, double devicePixelRatio);

    /// The picture of a surface of drawnSize(), with its shadow margins around it.
    static QImage draw(const SurfaceLook &look, const QSize &wanted, double devicePixelRatio);
};

} // namespace hmatnik
