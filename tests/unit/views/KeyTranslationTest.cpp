#include "views/KeyTranslation.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik {

TEST(KeyTranslation, ModifiersComeInTheFixedOrder)
{
    EXPECT_EQ(
        keyTokens(
            {.control = true,
             .option = true,
             .shift = true,
             .command = true,
             .characters = u"k"_s,
             .shiftedCharacters = u"K"_s}),
        (QStringList{u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s, u"K"_s}));
}

TEST(KeyTranslation, CommandShiftFourOnARowThatWritesDigits)
{
    EXPECT_EQ(
        keyTokens(
            {.shift = true, .command = true, .characters = u"4"_s, .shiftedCharacters = u"$"_s}),
        (QStringList{u"⇧"_s, u"⌘"_s, u"4"_s}));
}

TEST(KeyTranslation, CommandShiftFourOnARowThatWritesDigitsWithShift)
{
    EXPECT_EQ(
        keyTokens(
            {.shift = true, .command = true, .characters = u"č"_s, .shiftedCharacters = u"4"_s}),
        (QStringList{u"⇧"_s, u"⌘"_s, u"4"_s}));
    // Without Shift it is what the key writes.
    EXPECT_EQ(
        keyTokens({.command = true, .characters = u"č"_s, .shiftedCharacters = u"4"_s}),
        (QStringList{u"⌘"_s, u"Č"_s}));
}

TEST(KeyTranslation, ShiftChangesNothingElse)
{
    EXPECT_EQ(
        keyTokens(
            {.shift = true, .command = true, .characters = u","_s, .shiftedCharacters = u"?"_s}),
        (QStringList{u"⇧"_s, u"⌘"_s, u","_s}));
    // A digit of another script is no name of the catalogue.
    EXPECT_EQ(
        keyTokens({.shift = true, .characters = u"а"_s, .shiftedCharacters = u"٤"_s}),
        (QStringList{u"⇧"_s, u"А"_s}));
}

TEST(KeyTranslation, SpaceIsNamed)
{
    EXPECT_EQ(
        keyTokens(
            {.control = true, .option = true, .characters = u" "_s, .shiftedCharacters = u" "_s}),
        (QStringList{u"⌃"_s, u"⌥"_s, u"Mezerník"_s}));
    EXPECT_EQ(
        keyTokens({.characters = u"\u00a0"_s, .shiftedCharacters = {}}),
        (QStringList{u"\u00a0"_s}));
}

TEST(KeyTranslation, LettersAreUpperCased)
{
    EXPECT_EQ(keyTokens({.characters = u"a"_s, .shiftedCharacters = {}}), QStringList{u"A"_s});
    EXPECT_EQ(keyTokens({.characters = u"ů"_s, .shiftedCharacters = {}}), QStringList{u"Ů"_s});
    EXPECT_EQ(keyTokens({.characters = u"с"_s, .shiftedCharacters = {}}), QStringList{u"С"_s});
    EXPECT_EQ(keyTokens({.characters = u","_s, .shiftedCharacters = {}}), QStringList{u","_s});
    EXPECT_EQ(keyTokens({.characters = u"+"_s, .shiftedCharacters = {}}), QStringList{u"+"_s});
}

TEST(KeyTranslation, SpecialKeysAreNamedWhateverTheyWrite)
{
    using Key = KeyPress::SpecialKey;
    const auto named = [](Key key) {
        return keyTokens(
            {.command = true,
             .specialKey = key,
             .characters = u"\u007f"_s,
             .shiftedCharacters = {}});
    };
    EXPECT_EQ(named(Key::backspace), (QStringList{u"⌘"_s, u"Delete"_s}));
    EXPECT_EQ(named(Key::tab), (QStringList{u"⌘"_s, u"Tab"_s}));
    EXPECT_EQ(named(Key::leftArrow), (QStringList{u"⌘"_s, u"←"_s}));
    EXPECT_EQ(named(Key::rightArrow), (QStringList{u"⌘"_s, u"→"_s}));
    EXPECT_EQ(named(Key::upArrow), (QStringList{u"⌘"_s, u"↑"_s}));
    EXPECT_EQ(named(Key::downArrow), (QStringList{u"⌘"_s, u"↓"_s}));
}

TEST(KeyTranslation, ReturnAndEscapeStayControlCharacters)
{
    EXPECT_EQ(
        keyTokens({.shift = true, .characters = u"\r"_s, .shiftedCharacters = u"\r"_s}),
        (QStringList{u"⇧"_s, u"\r"_s}));
    EXPECT_EQ(
        keyTokens(
            {.option = true, .command = true, .characters = u"\u001b"_s, .shiftedCharacters = {}}),
        (QStringList{u"⌥"_s, u"⌘"_s, u"\u001b"_s}));
}

TEST(KeyTranslation, AKeyThatWritesNothingLeavesTheModifiersAlone)
{
    EXPECT_EQ(
        keyTokens({.command = true, .characters = {}, .shiftedCharacters = {}}),
        QStringList{u"⌘"_s});
    EXPECT_TRUE(keyTokens(KeyPress()).isEmpty());
}

TEST(KeyTranslation, TheMinusKeyGivesTheHyphen)
{
    EXPECT_EQ(
        keyTokens({.command = true, .characters = u"-"_s, .shiftedCharacters = u"_"_s}),
        (QStringList{u"⌘"_s, u"-"_s}));
}

} // namespace hmatnik
