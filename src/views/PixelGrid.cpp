#include "views/PixelGrid.h"

#include <algorithm>
#include <cmath>

namespace hmatnik {

double PixelGrid::snapped(double length, double ratio)
{
    return std::round(length * ratio) / ratio;
}

double PixelGrid::columnWidth(int column, int columns, double width, double spacing, double ratio)
{
    const auto gaps = static_cast<int>(std::round(spacing * ratio)) * (columns - 1);
    const int shared = std::max(0, static_cast<int>(std::round(width * ratio)) - gaps);
    const int pixels = shared / columns + (column < shared % columns ? 1 : 0);
    return pixels / ratio;
}

} // namespace hmatnik
