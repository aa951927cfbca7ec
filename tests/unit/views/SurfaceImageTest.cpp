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
        SurfaceImage::drawnSize(look, QSize(400, 300), 1),
        SurfaceImage::drawnSize(look, QSize(900, 145), 1));
    EXPECT_EQ(SurfaceImage::drawnSize(look, QSize(42, 30), 1), QSize(42, 30));
    for (const double ratio : {1.0, 1.25, 1.5, 2.0})
        EXPECT_EQ(SurfaceImage::drawnSize(look, QSize(900, 900), ratio).width() % 2, 1)
            << "a column in the middle, to be stretched";
}

TEST(SurfaceImageTest, pictureHoldsSurfaceAndShadowAtEveryScale)
{
    const SurfaceLook look = card();
    for (const double ratio : {1.0, 1.25, 2.0}) {
        const QMargins margins = SurfaceImage::shadowMargins(look, ratio);
        const QImage image = SurfaceImage::draw(look, QSize(40, 32), ratio);
        EXPECT_EQ(image.size(), QSize(40, 32).grownBy(margins));
    }
}

TEST(SurfaceImageTest, edgesAreAlikeOnAllFourSidesAtEveryScale)
{
    SurfaceLook look = card();
    look.fill = QColor(255, 255, 255);
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        const QMargins margins = SurfaceImage::shadowMargins(look, ratio);
        const QSize size(120, 90);
        const QImage image = SurfaceImage::draw(look, size, ratio);
        const QRect drawn(
            QPoint(margins.left(), margins.top()), SurfaceImage::drawnSize(look, size, ratio));
        for (int inwards = 0; inwards < 4; ++inwards) {
            const QRgb left = image.pixel(drawn.left() + inwards, drawn.center().y());
            EXPECT_EQ(image.pixel(drawn.right() - inwards, drawn.center().y()), left);
            EXPECT_EQ(image.pixel(drawn.center().x(), drawn.top() + inwards), left);
            EXPECT_EQ(image.pixel(drawn.center().x(), drawn.bottom() - inwards), left);
        }
        EXPECT_EQ(image.pixel(drawn.left(), drawn.center().y()), look.stroke.rgba()) << ratio;
    }
}

TEST(SurfaceImageTest, translucentFillIsNotDarkenedByItsOwnShadow)
{
    const SurfaceLook look = card();
    const QMargins margins = SurfaceImage::shadowMargins(look, 1);
    const QImage image = SurfaceImage::draw(look, QSize(60, 60), 1);
    const QColor middle = image.pixelColor(margins.left() + 30, margins.top() + 30);
    EXPECT_EQ(middle.alpha(), 128);
    EXPECT_EQ(middle.red(), 255);
    const QColor below = image.pixelColor(margins.left() + 30, margins.top() + 60);
    EXPECT_GT(below.alpha(), 0);
    EXPECT_EQ(below.red(), 0);
}

TEST(SurfaceImageTest, shadowIsGoneAtThePicturesEdge)
{
    const QImage image = SurfaceImage::draw(card(), QSize(60, 60), 1);
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
