#pragma once

#include <QColor>
#include <QImage>

namespace hmatnik {

/// The soft coloured light behind the window's content.
class GlowImage
{
public:
    /// A disc of the given diameter, blurred, as a picture of one colour with an alpha channel.
    /// Drawn at an eighth of its size, which a blur this wide hides.
    /// @param blurRadius standard deviation of the blur, in layout units
    static QImage blurredDisc(double diameter, double blurRadius, const QColor &color);

    /// Side of the square that the disc and its blur need, in layout units.
    static double extent(double diameter, double blurRadius);
};

} // namespace hmatnik
