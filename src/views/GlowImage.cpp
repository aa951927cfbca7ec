#include "views/GlowImage.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace hmatnik {

namespace {

constexpr double scale = 8;

/// Coverage of a blurred disc at a distance from its centre: the disc convolved with a Gaussian.
/// One direction has a closed form; the other is summed.
double coverage(double distance, double radius, double sigma)
{
    constexpr int steps = 64;
    const double width = 2 * radius / steps;
    const double norm = sigma * std::sqrt(2.0);
    double sum = 0;
    for (int i = 0; i < steps; ++i) {
        const double y = -radius + (i + 0.5) * width;
        const double chord = std::sqrt(radius * radius - y * y);
        const double across =
            (std::erf((chord - distance) / norm) - std::erf((-chord - distance) / norm)) / 2;
        sum += across * std::exp(-y * y / (norm * norm)) * width;
    }
    return sum / (norm * std::sqrt(std::numbers::pi));
}

} // namespace

double GlowImage::extent(double diameter, double blurRadius)
{
    return diameter + 6 * blurRadius;
}

QImage GlowImage::blurredDisc(double diameter, double blurRadius, const QColor &color)
{
    const double half = extent(diameter, blurRadius) / 2;
    const int side = static_cast<int>(std::ceil(2 * half / scale));
    // The picture is round: one profile, read by distance, gives every pixel.
    std::vector<double> profile(64);
    for (size_t i = 0; i < profile.size(); ++i)
        profile[i] = coverage(
            half * static_cast<double>(i) / static_cast<double>(profile.size() - 1), diameter / 2,
            blurRadius);

    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < side; ++x) {
            const double distance = std::hypot((x + 0.5) * scale - half, (y + 0.5) * scale - half) /
                                    half * static_cast<double>(profile.size() - 1);
            double value = 0;
            if (distance < static_cast<double>(profile.size() - 1)) {
                const auto index = static_cast<size_t>(distance);
                const double rest = distance - static_cast<double>(index);
                value = profile[index] * (1 - rest) + profile[index + 1] * rest;
            }
            QColor pixel = color;
            pixel.setAlphaF(static_cast<float>(value * color.alphaF()));
            line[x] = qPremultiply(pixel.rgba());
        }
    }
    return image;
}

} // namespace hmatnik
