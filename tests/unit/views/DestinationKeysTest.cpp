#include "views/DestinationKeys.h"

#include "fakes/FakeKeyboardLayout.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

namespace hmatnik::test {

namespace {

constexpr quint32 keyOfTwo = 11;
constexpr quint32 keyOfZero = 19;
constexpr quint32 elsewhere = 80;

struct DestinationKeysTest : testing::Test
{
    DestinationKeysTest()
    {
        layout.setDigit(keyOfTwo, 2);
        layout.setDigit(keyOfZero, 0);
    }

    std::optional<int> row(quint32 place, Qt::Key key, Qt::KeyboardModifiers modifiers) const
    {
        const QKeyEvent press(QEvent::KeyPress, key, modifiers, place, 0, 0);
        return destinationRow(press, layout);
    }

    FakeKeyboardLayout layout;
};

} // namespace

TEST_F(DestinationKeysTest, keysAboveTheLettersCountByTheirPlace)
{
    EXPECT_EQ(row(keyOfTwo, Qt::Key_2, Qt::ControlModifier), 1);
    EXPECT_EQ(row(keyOfTwo, Qt::Key(0x11a), Qt::ControlModifier), 1);
    EXPECT_EQ(row(keyOfZero, Qt::Key_Eacute, Qt::ControlModifier), 9);
    // What another layout writes there does not matter.
    EXPECT_EQ(row(keyOfTwo, Qt::Key_7, Qt::ControlModifier), 1);
}

TEST_F(DestinationKeysTest, shiftLeadsTenRowsFurther)
{
    const Qt::KeyboardModifiers held = Qt::ControlModifier | Qt::ShiftModifier;
    EXPECT_EQ(row(keyOfTwo, Qt::Key_At, held), 11);
    EXPECT_EQ(row(keyOfTwo, Qt::Key_2, held), 11);
    EXPECT_EQ(row(keyOfZero, Qt::Key_ParenRight, held), 19);
}

TEST_F(DestinationKeysTest, theNumberPadCountsByWhatItWrites)
{
    const Qt::KeyboardModifiers held = Qt::ControlModifier | Qt::KeypadModifier;
    EXPECT_EQ(row(elsewhere, Qt::Key_1, held), 0);
    EXPECT_EQ(row(elsewhere, Qt::Key_9, held), 8);
    EXPECT_EQ(row(elsewhere, Qt::Key_0, held), 9);
    EXPECT_EQ(row(elsewhere, Qt::Key_End, held), std::nullopt);
}

TEST_F(DestinationKeysTest, everyOtherCombinationLeadsNowhere)
{
    for (const Qt::KeyboardModifiers held : {
             Qt::KeyboardModifiers(Qt::NoModifier),
             Qt::KeyboardModifiers(Qt::ShiftModifier),
             Qt::KeyboardModifiers(Qt::AltModifier),
             Qt::ControlModifier | Qt::AltModifier,
             Qt::ControlModifier | Qt::MetaModifier,
         })
        EXPECT_EQ(row(keyOfTwo, Qt::Key_2, held), std::nullopt) << held;
    EXPECT_EQ(row(elsewhere, Qt::Key_F, Qt::ControlModifier), std::nullopt);
    EXPECT_EQ(row(elsewhere, Qt::Key_Slash, Qt::ControlModifier), std::nullopt);
    EXPECT_EQ(row(elsewhere, Qt::Key_Colon, Qt::ControlModifier), std::nullopt);
}

} // namespace hmatnik::test
