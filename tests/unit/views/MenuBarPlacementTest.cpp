#include "views/MenuBarPlacement.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

namespace {

constexpr QSize window(320, 287);
constexpr int gap = MenuBarPlacement::gap;

} // namespace

TEST(MenuBarPlacementTest, belowAnIconOnATopPanel)
{
    const QRect workArea(0, 30, 1920, 1050);
    EXPECT_EQ(
        MenuBarPlacement::besideIcon(QRect(1000, 4, 22, 22), workArea, window),
        QPoint(1010 - 160, 30 + gap));
}

TEST(MenuBarPlacementTest, aboveAnIconOnABottomPanel)
{
    const QRect workArea(0, 0, 1920, 1040);
    EXPECT_EQ(
        MenuBarPlacement::besideIcon(QRect(1000, 1050, 22, 22), workArea, window),
        QPoint(1010 - 160, 1040 - gap - 287));
}

TEST(MenuBarPlacementTest, besideAnIconOnAVerticalPanel)
{
    EXPECT_EQ(
        MenuBarPlacement::besideIcon(QRect(10, 500, 22, 22), QRect(48, 0, 1872, 1080), window),
        QPoint(48 + gap, 510 - 143));
    EXPECT_EQ(
        MenuBarPlacement::besideIcon(QRect(1880, 500, 22, 22), QRect(0, 0, 1872, 1080), window),
        QPoint(1872 - gap - 320, 510 - 143));
}

TEST(MenuBarPlacementTest, anIconInTheCornerKeepsTheWindowOnTheScreen)
{
    EXPECT_EQ(
        MenuBarPlacement::besideIcon(QRect(1895, 4, 22, 22), QRect(0, 30, 1920, 1050), window),
        QPoint(1920 - gap - 320, 30 + gap));
}

TEST(MenuBarPlacementTest, anIconOfATrayThatLeavesNoSpaceIsNotCovered)
{
    const QRect icon(1000, 0, 26, 26);
    const QPoint place = MenuBarPlacement::besideIcon(icon, QRect(0, 0, 1920, 1080), window);
    EXPECT_FALSE(QRect(place, window).intersects(icon));
    EXPECT_EQ(place.y(), 26 + gap);
}

TEST(MenuBarPlacementTest, otherScreensHaveTheirOwnOrigin)
{
    EXPECT_EQ(
        MenuBarPlacement::besideIcon(
            QRect(-640, -590, 20, 20), QRect(-1280, -570, 1280, 994), window),
        QPoint(-630 - 160, -570 + gap));
}

TEST(MenuBarPlacementTest, aPointerOnAPanelIsOnTheIcon)
{
    EXPECT_EQ(
        MenuBarPlacement::nearPointer(QPoint(1000, 12), QRect(0, 30, 1920, 1050), window),
        QPoint(1000 - 160, 30 + gap));
}

TEST(MenuBarPlacementTest, aPointerElsewhereChoosesItsCorner)
{
    const QRect workArea(0, 30, 1920, 1050);
    const int right = 1920 - gap - 320;
    const int bottom = 1080 - gap - 287;
    EXPECT_EQ(
        MenuBarPlacement::nearPointer(QPoint(300, 200), workArea, window), QPoint(gap, 30 + gap));
    EXPECT_EQ(
        MenuBarPlacement::nearPointer(QPoint(1500, 200), workArea, window),
        QPoint(right, 30 + gap));
    EXPECT_EQ(
        MenuBarPlacement::nearPointer(QPoint(300, 900), workArea, window), QPoint(gap, bottom));
    EXPECT_EQ(
        MenuBarPlacement::nearPointer(QPoint(1500, 900), workArea, window), QPoint(right, bottom));
}

TEST(MenuBarPlacementTest, aShownWindowMovesNoFartherThanItMust)
{
    const QRect workArea(0, 30, 1280, 770);
    EXPECT_EQ(
        MenuBarPlacement::onScreen(QRect(QPoint(100, 200), window), workArea), QPoint(100, 200));
    EXPECT_EQ(
        MenuBarPlacement::onScreen(QRect(QPoint(2200, 36), window), workArea),
        QPoint(1280 - gap - 320, 36));
    EXPECT_EQ(
        MenuBarPlacement::onScreen(QRect(QPoint(-50, 1100), window), workArea),
        QPoint(gap, 800 - gap - 287));
}

TEST(MenuBarPlacementTest, aWindowThatDoesNotFitShowsItsBeginning)
{
    EXPECT_EQ(
        MenuBarPlacement::besideIcon(QRect(50, 0, 22, 22), QRect(0, 30, 200, 170), window),
        QPoint(gap, 30 + gap));
}

} // namespace hmatnik::test
