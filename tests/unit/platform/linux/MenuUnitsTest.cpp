#include "platform/linux/MenuUnits.h"

#include <gtest/gtest.h>

namespace hmatnik::platform {

namespace {

/// The place of a pixel in the program's units; none if the window can't be the menu's.
std::optional<QPoint> placeOf(QPoint pixel, const QRect &menu, bool isWhole, const QRect &window)
{
    const auto units = MenuUnits::of(menu, isWhole, window);
    return units ? std::optional(units->fromPixels(pixel)) : std::nullopt;
}

} // namespace

TEST(MenuUnits, WithoutAScaleNothingChanges)
{
    const QRect window(320, 176, 341, 355);
    EXPECT_EQ(placeOf({400, 200}, window, true, window), QPoint(400, 200));
    EXPECT_EQ(placeOf({400, 200}, window, false, window), QPoint(400, 200));
    const QRect items = window.adjusted(1, 4, -1, -4);
    EXPECT_EQ(placeOf({400, 200}, items, false, window), QPoint(400, 200)) << "a theme's edge";
    const QRect inShadow = window.adjusted(40, 36, -40, -44);
    EXPECT_EQ(placeOf({400, 200}, inShadow, true, window), QPoint(400, 200));
    EXPECT_EQ(placeOf({400, 200}, inShadow, false, window), QPoint(400, 200));
    const QRect scrolled = window.adjusted(0, -12, 0, 12);
    EXPECT_EQ(placeOf({400, 200}, scrolled, false, window), QPoint(400, 200));
}

TEST(MenuUnits, ToolkitsThatLeaveTheMenuOutScaleByWholeNumbers)
{
    // As GTK tells it.
    EXPECT_EQ(
        placeOf({330, 229}, QRect(160, 88, 341, 355), false, QRect(320, 176, 682, 710)),
        QPoint(165, 114));
    // With an edge, and at the screen's own edge, where the smaller scale lies inside, too.
    EXPECT_EQ(
        placeOf({100, 100}, QRect(1, 28, 200, 280), false, QRect(0, 48, 404, 576)), QPoint(50, 50));
    EXPECT_EQ(
        placeOf({300, 90}, QRect(0, 0, 200, 300), false, QRect(0, 0, 600, 900)), QPoint(100, 30));
}

TEST(MenuUnits, ToolkitsThatTellOfTheMenuScaleByAnyNumber)
{
    EXPECT_EQ(
        placeOf({1000, 500}, QRect(481, 239, 338, 361), true, QRect(962, 478, 676, 722)),
        QPoint(500, 250));
    // As Qt tells it: each edge is rounded by itself.
    const QRect menu(146, 39, 247, 228);
    const QRect window(219, 59, 371, 342);
    EXPECT_EQ(placeOf(window.topLeft(), menu, true, window), menu.topLeft());
    EXPECT_EQ(placeOf(window.bottomRight(), menu, true, window), menu.bottomRight());
    EXPECT_EQ(placeOf({300, 59 + 150}, menu, true, window), QPoint(199, 138));
    EXPECT_EQ(
        placeOf({100, 131}, QRect(0, 28, 200, 296), true, QRect(0, 31, 220, 326)), QPoint(90, 118));
}

TEST(MenuUnits, AnotherScreenMayHaveCoordinatesOfItsOwn)
{
    // Counted from the corner of a screen that begins at 1920.
    const QRect menu(2000, 50, 200, 300);
    const QRect window(2080, 100, 400, 600);
    EXPECT_EQ(placeOf({2280, 300}, menu, true, window), QPoint(2100, 150));
}

TEST(MenuUnits, AnotherMenusWindowIsNone)
{
    const QRect window(320, 176, 682, 710);
    EXPECT_EQ(placeOf({330, 180}, QRect(501, 189, 150, 100), false, window), std::nullopt);
    EXPECT_EQ(placeOf({330, 180}, QRect(501, 189, 150, 100), true, window), std::nullopt);
    EXPECT_EQ(placeOf({330, 180}, QRect(), false, window), std::nullopt);
    EXPECT_EQ(placeOf({330, 180}, QRect(160, 88, 341, 355), false, QRect()), std::nullopt);
    EXPECT_EQ(placeOf({5, 5}, QRect(0, 0, 1, 1), true, QRect(0, 0, 1000, 1000)), std::nullopt);
}

TEST(MenuUnits, OfTwoMenusTheWindowsOwnFitsBetter)
{
    // A submenu of the same size beside its parent.
    const QRect parent(100, 50, 200, 300);
    const QRect child(300, 75, 200, 300);
    const QRect window(150, 75, 300, 450);
    const auto own = MenuUnits::of(parent, true, window);
    const auto other = MenuUnits::of(child, true, window);
    ASSERT_TRUE(own && other);
    EXPECT_LT(own->misfit(), other->misfit());
}

} // namespace hmatnik::platform
