#include "views/PixelGrid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace hmatnik::test {

namespace {

constexpr double ratios[] = {1, 1.25, 1.5, 2};

bool isWhole(double pixels)
{
    return std::abs(pixels - std::round(pixels)) < 1e-9;
}

} // namespace

TEST(PixelGridTest, lengthsBecomeWholePixels)
{
    EXPECT_EQ(PixelGrid::snapped(14, 1), 14);
    EXPECT_DOUBLE_EQ(PixelGrid::snapped(14, 1.25), 18 / 1.25);
    EXPECT_DOUBLE_EQ(PixelGrid::snapped(14, 2), 14);
}

TEST(PixelGridTest, columnsFillTheWidthWithWholePixels)
{
    for (const double ratio : ratios) {
        for (const int columns : {1, 2, 3, 7}) {
            const double spacing = PixelGrid::snapped(14, ratio);
            double widest = 0;
            double narrowest = 1e6;
            double filled = spacing * (columns - 1);
            for (int column = 0; column < columns; ++column) {
                const double width = PixelGrid::columnWidth(column, columns, 705, 14, ratio);
                EXPECT_TRUE(isWhole(width * ratio)) << width << " at " << ratio;
                widest = std::max(widest, width);
                narrowest = std::min(narrowest, width);
                filled += width;
            }
            EXPECT_NEAR(filled, 705, 0.5 / ratio + 1e-9);
            EXPECT_LE((widest - narrowest) * ratio, 1.001);
        }
    }
}

TEST(PixelGridTest, columnsWithoutRoomAreEmpty)
{
    EXPECT_EQ(PixelGrid::columnWidth(0, 3, 20, 14, 1), 0);
    EXPECT_EQ(PixelGrid::columnWidth(0, 1, -5, 14, 1), 0);
}

} // namespace hmatnik::test
