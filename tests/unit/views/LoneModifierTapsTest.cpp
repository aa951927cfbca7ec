#include "views/LoneModifierTaps.h"

#include <Qt>

#include <gtest/gtest.h>

namespace hmatnik {

TEST(LoneModifierTaps, TwoTapsInARowLeadOut)
{
    LoneModifierTaps taps;
    taps.press(Qt::Key_Shift, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Shift, 1000));
    taps.press(Qt::Key_Shift, true, false);
    EXPECT_TRUE(taps.release(Qt::Key_Shift, 1000 + LoneModifierTaps::longestPause));
    // The way out begins anew.
    taps.press(Qt::Key_Shift, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Shift, 1700));
}

TEST(LoneModifierTaps, SlowTapsDoNot)
{
    LoneModifierTaps taps;
    taps.press(Qt::Key_Shift, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Shift, 1000));
    taps.press(Qt::Key_Shift, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Shift, 1001 + LoneModifierTaps::longestPause));
    // The slow second one counts as the first of the next pair.
    taps.press(Qt::Key_Shift, true, false);
    EXPECT_TRUE(taps.release(Qt::Key_Shift, 1301 + LoneModifierTaps::longestPause));
}

TEST(LoneModifierTaps, TapsOfDifferentModifiersDoNot)
{
    LoneModifierTaps taps;
    taps.press(Qt::Key_Shift, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Shift, 1000));
    taps.press(Qt::Key_Control, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Control, 1100));
    taps.press(Qt::Key_Shift, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Shift, 1200));
}

TEST(LoneModifierTaps, CombinationsDoNot)
{
    LoneModifierTaps taps;
    // Shift and a letter, twice.
    for (quint64 time : {1000U, 1200U}) {
        taps.press(Qt::Key_Shift, true, false);
        taps.press(Qt::Key_A, false, true);
        EXPECT_FALSE(taps.release(Qt::Key_A, time));
        EXPECT_FALSE(taps.release(Qt::Key_Shift, time + 50));
    }
    // A letter between two taps.
    taps.press(Qt::Key_Shift, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Shift, 2000));
    taps.press(Qt::Key_A, false, false);
    EXPECT_FALSE(taps.release(Qt::Key_A, 2050));
    taps.press(Qt::Key_Shift, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Shift, 2100));
}

TEST(LoneModifierTaps, ModifiersHeldTogetherDoNot)
{
    LoneModifierTaps taps;
    for (quint64 time : {1000U, 1200U}) {
        taps.press(Qt::Key_Control, true, false);
        taps.press(Qt::Key_Shift, true, true);
        EXPECT_FALSE(taps.release(Qt::Key_Shift, time));
        EXPECT_FALSE(taps.release(Qt::Key_Control, time + 20));
    }
}

TEST(LoneModifierTaps, AReleaseWithoutAPressDoesNotCount)
{
    LoneModifierTaps taps;
    EXPECT_FALSE(taps.release(Qt::Key_Meta, 1000));
    taps.press(Qt::Key_Meta, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Meta, 1100));
    taps.reset();
    taps.press(Qt::Key_Meta, true, false);
    EXPECT_FALSE(taps.release(Qt::Key_Meta, 1200));
}

} // namespace hmatnik
