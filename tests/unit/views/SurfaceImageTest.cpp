#include "views/SurfaceImage.h"

#include "views/GlowImage.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

namespace {

SurfaceLook card()
{
    return {
        .radius = 14,
        .fill = QColor(255, 255, 255, 128),
        .stroke = QColor(255, 0, 0),
        .strokeWidth = 1,
        .edgeShadow = QColor(0, 0, 0, 40),
        .wideShadow = QColor(0, 0, 0, 20)};
}

} // namespace

TEST(SurfaceImageTest, largeSurfacesShareOnePicture)
{
    const SurfaceLook look = card();
    EXPECT_EQ(
        SurfaceImage::drawnSize(look, QSizeF(400, 300)),
        SurfaceImage::drawnSize(look, QSizeF(900, 145)));
    EXPECT_EQ(SurfaceImage::drawnSize(look, QSizeF(42, 30)), QSizeF(42, 30));
}

TEST(SurfaceImageTest, pictureHoldsSurfaceAndShadowAtEveryScale)
{
    const SurfaceLook look = card();
    const QMargins margins = SurfaceImage::shadowMargins(look);
    for (const double ratio : {1.0, 1.25, 2.0}) {
        const QImage image = SurfaceImage::draw(look, QSizeF(40, 32), ratio);
        EXPECT_EQ(image.width(), std::ceil((40 + margins.left() + margins.right()) * ratio));
        EXPECT_EQ(image.height(), std::ceil((32 + margins.top() + margins.bottom()) * ratio));
    }
}

TEST(SurfaceImageTest, translucentFillIsNotDarkenedByItsOwnShadow)
{
    const SurfaceLook look = card();
    const QMargins margins = SurfaceImage::shadowMargins(look);
    const QImage image = SurfaceImage::draw(look, QSizeF(60, 60), 1);
    const QColor middle = image.pixelColor(margins.left() + 30, margins.top() + 30);
    EXPECT_EQ(middle.alpha(), 128);
    EXPECT_EQ(middle.red(), 255);
    const QColor below = image.pixelColor(margins.left() + 30, margins.top() + 60);
    EXPECT_GT(below.alpha(), 0);
    EXPECT_EQ(below.red(), 0);
}

TEST(SurfaceImageTest, shadowIsGoneAtThePicturesEdge)
{
    const QImage image = SurfaceImage::draw(card(), QSizeF(60, 60), 1);
    for (int x = 0; x < image.width(); ++x) {
        EXPECT_LE(image.pixelColor(x, 0).alpha(), 1);
        EXPECT_LE(image.pixelColor(x, image.height() - 1).alpha(), 1);
    }
}

TEST(GlowImageTest, discFadesFromItsCentreToNothing)
{
    const QColor blue(0, 122, 255, 36);
    const QImage glow = GlowImage::blurredDisc(420, 90, blue);
    EXPECT_GE(glow.width() * 8, static_cast<int>(GlowImage::extent(420, 90)));
    const int middle = glow.width() / 2;
    // A disc of 210 blurred with a deviation of 90 keeps 93 % at its centre and half of that near
    // its rim, as the integral of the Gaussian over the disc has it.
    EXPECT_NEAR(glow.pixelColor(middle, middle).alpha(), 36 * 0.934, 1.5);
    EXPECT_EQ(glow.pixelColor(0, middle).alpha(), 0);
    int previous = 255;
    for (int x = middle; x < glow.width(); ++x) {
        const int alpha = glow.pixelColor(x, middle).alpha();
        EXPECT_LE(alpha, previous);
        previous = alpha;
    }
}

} // namespace hmatnik::test
