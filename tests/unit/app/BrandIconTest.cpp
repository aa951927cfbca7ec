#include "app/BrandIcon.h"

#include <QImage>
#include <QPixmap>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace hmatnik::test {

namespace {

QImage drawn(int side)
{
    return brandIcon().pixmap(QSize(side, side)).toImage();
}

/// Relative luminance as WCAG 2.1 defines it, 0 to 1.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

class BrandIconSizeTest : public testing::TestWithParam<int>
{
};

TEST_P(BrandIconSizeTest, isDrawnAtTheSizeThatIsAskedFor)
{
    const int side = GetParam();
    const QImage image = drawn(side);
    ASSERT_EQ(image.size(), QSize(side, side));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << "the corner is round";
    EXPECT_EQ(image.pixelColor(side / 2, 1).alpha(), 255) << "the badge fills its place";

    // The mark stands out from the badge around it, and is the same from all sides.
    double brightest = 0;
    double darkest = 1;
    for (int y = side / 4; y < side - side / 4; ++y) {
        for (int x = side / 4; x < side - side / 4; ++x) {
            brightest = std::max(brightest, luminance(image.pixelColor(x, y)));
            darkest = std::min(darkest, luminance(image.pixelColor(x, y)));
            EXPECT_NEAR(image.pixelColor(x, y).red(), image.pixelColor(side - 1 - x, y).red(), 8)
                << x << ' ' << y;
        }
    }
    EXPECT_GE((brightest + 0.05) / (darkest + 0.05), 3) << "contrast of symbols";
}

INSTANTIATE_TEST_SUITE_P(
    PanelSizes, BrandIconSizeTest, testing::Values(16, 22, 24, 26, 32, 44, 64));

TEST(BrandIconTest, offersTheSizesOfPanels)
{
    const QList<QSize> sizes = brandIcon().availableSizes();
    EXPECT_TRUE(sizes.contains(QSize(22, 22)));
    EXPECT_TRUE(sizes.contains(QSize(44, 44)));
}

} // namespace hmatnik::test
