#include "views/KeySizes.h"

#include "views/VisualKeyboard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace hmatnik::test {

namespace {

double rowWidth(const KeySizes &sizes, const QStringList &row)
{
    double width = static_cast<double>(row.size() - 1) * sizes.keySpacing;
    for (const QString &label : row)
        width += sizes.width(label);
    return width;
}

double keyboardWidth(const KeySizes &sizes)
{
    double widest = 0;
    for (const QStringList &row : VisualKeyboard::rows())
        widest = std::max(widest, rowWidth(sizes, row));
    return widest;
}

} // namespace

TEST(KeySizesTest, areAsWrittenWhereThereIsRoom)
{
    const KeySizes sizes(1000, 1);
    EXPECT_EQ(sizes.width(QStringLiteral("Q")), 43);
    EXPECT_EQ(sizes.width(VisualKeyboard::spaceBar), 210);
    EXPECT_EQ(sizes.keyHeight, 39);
    EXPECT_EQ(sizes.keySpacing, 6);
    EXPECT_EQ(sizes.rowSpacing, 7);
    EXPECT_EQ(keyboardWidth(sizes), 700);
}

TEST(KeySizesTest, keysShrinkEvenlyIntoANarrowWindow)
{
    // The smallest window leaves the rows so much, between the paddings of the card.
    const KeySizes sizes(669, 1);
    EXPECT_EQ(keyboardWidth(sizes), 669);
    EXPECT_EQ(sizes.keyWidth, 41);
    EXPECT_NEAR(sizes.spaceBarWidth / sizes.keyWidth, 210.0 / 43, 0.1);
    EXPECT_EQ(sizes.keySpacing, 6);
    EXPECT_EQ(sizes.keyHeight, 39);
}

TEST(KeySizesTest, areWholePixelsAndFitAtEveryScale)
{
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        for (double width = 560; width < 760; width += 7) {
            const KeySizes sizes(width, ratio);
            for (const double length :
                 {sizes.keyWidth, sizes.spaceBarWidth, sizes.keyHeight, sizes.keySpacing,
                  sizes.rowSpacing})
                EXPECT_NEAR(length * ratio, std::round(length * ratio), 1e-9);
            EXPECT_LE(keyboardWidth(sizes), width + 1e-9) << ratio;
            EXPECT_GT(keyboardWidth(sizes), std::min(width, 695.0) - 1) << ratio;
        }
    }
}

TEST(KeySizesTest, withoutRoomNothingIsNegative)
{
    const KeySizes sizes(10, 1);
    EXPECT_GE(sizes.keyWidth, 0);
    EXPECT_GE(sizes.spaceBarWidth, 0);
}

} // namespace hmatnik::test
