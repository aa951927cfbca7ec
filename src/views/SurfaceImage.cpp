#include "views/SurfaceImage.h"

#include <QHashFunctions>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <vector>

namespace hmatnik {

namespace {

// Measured from how a card should lie on its background: a hard edge just below it, and a wide
// soft one that is seen to about two and a half times its standard deviation.
constexpr double edgeSigma = 1.0;
constexpr double edgeOffset = 1.0;
constexpr double edgeReach = 4;

double wideReach(const SurfaceLook &look)
{
    return std::ceil(look.wideShadowBlur * 8 / 3);
}

/// As many whole pixels as hold a length in layout units.
int pixelsFor(double length, double devicePixelRatio)
{
    return static_cast<int>(std::ceil(length * devicePixelRatio));
}

QPainterPath roundedRect(const QRectF &rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

/// Blurs coverage along one direction with a Gaussian of the given deviation in pixels.
void blurLine(
    const float *in, float *out, int count, ptrdiff_t stride, const std::vector<float> &kernel)
{
    const int reach = static_cast<int>(kernel.size()) / 2;
    const float *middle = kernel.data() + reach;
    for (int i = 0; i < count; ++i) {
        float sum = 0;
        const int first = std::max(0, i - reach);
        const int last = std::min(count - 1, i + reach);
        for (int k = first; k <= last; ++k)
            sum += in[k * stride] * middle[k - i];
        out[i * stride] = sum;
    }
}

std::vector<float> gaussian(double sigma)
{
    const int reach = static_cast<int>(std::ceil(3 * sigma));
    std::vector<float> kernel(static_cast<size_t>(2 * reach + 1));
    float *middle = kernel.data() + reach;
    double total = 0;
    for (int i = -reach; i <= reach; ++i)
        total += std::exp(-i * i / (2 * sigma * sigma));
    for (int i = -reach; i <= reach; ++i)
        middle[i] = static_cast<float>(std::exp(-i * i / (2 * sigma * sigma)) / total);
    return kernel;
}

QImage shadow(
    const QSize &pixels, const QRectF &surface, double radius, double offset, double sigma,
    const QColor &color)
{
    QImage mask(pixels, QImage::Format_Alpha8);
    mask.fill(0);
    {
        QPainter painter(&mask);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(roundedRect(surface.translated(0, offset), radius), Qt::black);
    }
    const ptrdiff_t width = pixels.width();
    const int height = pixels.height();
    std::vector<float> coverage(static_cast<size_t>(width * height));
    for (int y = 0; y < height; ++y) {
        const uchar *line = mask.constScanLine(y);
        std::copy(line, line + width, coverage.begin() + y * width);
    }
    std::vector<float> blurred(coverage.size());
    const std::vector<float> kernel = gaussian(sigma);
    for (int y = 0; y < height; ++y)
        blurLine(
            coverage.data() + y * width, blurred.data() + y * width, pixels.width(), 1, kernel);
    for (int x = 0; x < width; ++x)
        blurLine(blurred.data() + x, coverage.data() + x, height, width, kernel);

    QImage result(pixels, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        auto *line = reinterpret_cast<QRgb *>(result.scanLine(y));
        const float *covered = coverage.data() + y * width;
        for (int x = 0; x < width; ++x) {
            QColor pixel = color;
            pixel.setAlphaF(color.alphaF() * covered[x] / 255);
            line[x] = qPremultiply(pixel.rgba());
        }
    }
    return result;
}

} // namespace

size_t qHash(const SurfaceLook &look, size_t seed) noexcept
{
    return qHashMulti(
        seed, look.radius, look.fill.rgba(), look.stroke.rgba(), look.strokeWidth,
        look.edgeShadow.rgba(), look.wideShadow.rgba(), look.wideShadowBlur, look.wideShadowOffset);
}

QMargins SurfaceImage::shadowMargins(const SurfaceLook &look, double devicePixelRatio)
{
    if (look.wideShadow.alpha() > 0) {
        const int reach = pixelsFor(wideReach(look), devicePixelRatio);
        const int above =
            pixelsFor(std::max(0.0, wideReach(look) - look.wideShadowOffset), devicePixelRatio);
        const int below = pixelsFor(wideReach(look) + look.wideShadowOffset, devicePixelRatio);
        return {reach, above, reach, below};
    }
    if (look.edgeShadow.alpha() > 0) {
        const int reach = pixelsFor(edgeReach, devicePixelRatio);
        return {reach, reach, reach, reach};
    }
    return {};
}

QSize SurfaceImage::drawnSize(const SurfaceLook &look, const QSize &wanted, double devicePixelRatio)
{
    // Near a corner the shadow bends for about its reach; only beyond that is every column, and
    // every row, like its neighbour.
    const int corner = pixelsFor(std::max(look.radius, look.strokeWidth), devicePixelRatio);
    const int bend =
        pixelsFor(look.wideShadow.alpha() > 0 ? wideReach(look) : edgeReach, devicePixelRatio);
    const int stretchable = 2 * (corner + bend) + 1;
    return wanted.boundedTo(QSize(stretchable, stretchable));
}

QImage SurfaceImage::draw(const SurfaceLook &look, const QSize &wanted, double devicePixelRatio)
{
    const QMargins margins = shadowMargins(look, devicePixelRatio);
    const QSize size = drawnSize(look, wanted, devicePixelRatio);
    const QSize pixels = size.grownBy(margins);
    const QRectF surface(QPointF(margins.left(), margins.top()), QSizeF(size));
    const double radius = look.radius * devicePixelRatio;

    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (look.wideShadow.alpha() > 0)
        painter.drawImage(
            0, 0,
            shadow(
                pixels, surface, radius, look.wideShadowOffset * devicePixelRatio,
                look.wideShadowBlur * devicePixelRatio, look.wideShadow));
    if (look.edgeShadow.alpha() > 0)
        painter.drawImage(
            0, 0,
            shadow(
                pixels, surface, radius, edgeOffset * devicePixelRatio,
                edgeSigma * devicePixelRatio, look.edgeShadow));
    // A translucent surface must not be darkened by its own shadow.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(roundedRect(surface, radius), Qt::black);
    // Plus, because the punched edge and the fill's edge share the same antialiased pixels.
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    if (look.fill.alpha() > 0)
        painter.fillPath(roundedRect(surface, radius), look.fill);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (look.stroke.alpha() > 0 && look.strokeWidth > 0) {
        const double width = look.strokeWidth * devicePixelRatio;
        const double inset = width / 2;
        painter.setPen(QPen(look.stroke, width));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(roundedRect(
            surface.adjusted(inset, inset, -inset, -inset), std::max(0.0, radius - inset)));
    }
    return image;
}

} // namespace hmatnik
