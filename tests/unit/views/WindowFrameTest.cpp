#include "views/WindowFrame.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;
using WindowFrame::fromText;
using WindowFrame::keptVisible;
using WindowFrame::opening;
using WindowFrame::toText;

namespace {

const QRect fullHd(0, 0, 1920, 1080);
const QRect second(1920, 0, 1280, 1024);

} // namespace

TEST(WindowFrameTest, firstOpeningIsLargeEnoughForShellAndContentAndCentred)
{
    const QRect frame = opening(std::nullopt, {fullHd});
    EXPECT_EQ(frame.size(), QSize(980, 650));
    EXPECT_EQ(frame.center(), fullHd.center());
}

TEST(WindowFrameTest, savedFrameComesBackUnchanged)
{
    const QRect saved(300, 200, 1100, 700);
    EXPECT_EQ(opening(saved, {fullHd}), saved);
    const QRect onSecond(1950, 100, 1000, 700);
    EXPECT_EQ(opening(onSecond, {fullHd, second}), onSecond);
}

TEST(WindowFrameTest, savedFrameIsNeverOffScreen)
{
    EXPECT_EQ(opening(QRect(5000, 4000, 1100, 700), {fullHd}), QRect(820, 380, 1100, 700));
    EXPECT_EQ(opening(QRect(-900, -50, 1100, 700), {fullHd}), QRect(0, 0, 1100, 700));
    // The second screen has gone.
    EXPECT_EQ(opening(QRect(2100, 100, 1000, 700), {fullHd}), QRect(920, 100, 1000, 700));
}

TEST(WindowFrameTest, sizeStaysBetweenMinimumAndScreen)
{
    EXPECT_EQ(opening(QRect(0, 0, 300, 200), {fullHd}).size(), QSize(980, 650));
    EXPECT_EQ(opening(QRect(0, 0, 4000, 3000), {fullHd}), fullHd);
}

TEST(WindowFrameTest, screenSmallerThanTheMinimumShowsTheTopLeftCorner)
{
    const QRect small(0, 30, 800, 570);
    EXPECT_EQ(opening(std::nullopt, {small}), QRect(0, 30, 980, 650));
    EXPECT_EQ(opening(QRect(500, 500, 980, 650), {small}), QRect(0, 30, 980, 650));
}

TEST(WindowFrameTest, aWindowOfWhichAScreenShowsHalfStaysWhereItIs)
{
    const QRect halfOut(1920 - 490, 100, 980, 650);
    EXPECT_EQ(keptVisible(halfOut, {fullHd}), halfOut);
    EXPECT_EQ(keptVisible(QRect(1920 - 489, 100, 980, 650), {fullHd}), QRect(940, 100, 980, 650));
    const QRect onSecond(2000, 100, 980, 650);
    EXPECT_EQ(keptVisible(onSecond, {fullHd, second}), onSecond);
    // Each shows a part, and neither half.
    EXPECT_EQ(
        keptVisible(QRect(1920 - 490, -200, 980, 650), {fullHd, second}), QRect(940, 0, 980, 650));
}

TEST(WindowFrameTest, aWindowWhoseScreenHasGoneComesToAnother)
{
    EXPECT_EQ(keptVisible(QRect(2100, 100, 1000, 700), {fullHd}), QRect(920, 100, 1000, 700));
    EXPECT_EQ(keptVisible(QRect(2100, 100, 1000, 700), {}), QRect(2100, 100, 1000, 700));
}

TEST(WindowFrameTest, withoutAnyScreenTheFrameIsKept)
{
    EXPECT_EQ(opening(QRect(10, 20, 1000, 700), {}), QRect(10, 20, 1000, 700));
    EXPECT_EQ(opening(std::nullopt, {}).size(), QSize(980, 650));
}

TEST(WindowFrameTest, storedFormGoesThereAndBack)
{
    const QRect frame(-12, 34, 1100, 700);
    EXPECT_EQ(toText(frame), u"-12 34 1100 700"_s);
    EXPECT_EQ(fromText(toText(frame)), frame);
}

TEST(WindowFrameTest, oddTextsAreNoFrame)
{
    for (const QString &text :
         {QString(), u"1 2 3"_s, u"1 2 3 4 5"_s, u"a b c d"_s, u"0 0 0 700"_s, u"0 0 1000 -1"_s,
          u"0 0 99999999999 700"_s, u"2147483647 0 1000 700"_s, u"1.5 2 3 4"_s})
        EXPECT_FALSE(fromText(text).has_value()) << qPrintable(text);
}

} // namespace hmatnik::test
