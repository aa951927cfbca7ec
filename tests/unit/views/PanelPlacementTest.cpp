#include "views/PanelPlacement.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

TEST(PanelPlacementTest, topRightCornerOfTheWorkArea)
{
    EXPECT_EQ(PanelPlacement::topRight(QRect(0, 0, 1920, 1080), QSize(380, 300)), QPoint(1518, 22));
}

TEST(PanelPlacementTest, panelsAndDocksCount)
{
    EXPECT_EQ(PanelPlacement::topRight(QRect(64, 30, 1200, 700), QSize(380, 258)), QPoint(862, 52));
}

TEST(PanelPlacementTest, otherScreensHaveTheirOwnOrigin)
{
    EXPECT_EQ(
        PanelPlacement::topRight(QRect(-1280, 100, 1280, 1024), QSize(380, 300)),
        QPoint(-402, 122));
}

} // namespace hmatnik::test
