#include "views/KeyTranslation.h"

#include "model/DesktopLibrary.h"

#include <QHash>

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

TEST(KeyTranslation, FurtherKeysHaveNamesOnlyWhereTheyAreWanted)
{
    using enum KeyPress::SpecialKey;
    const auto special = [](KeyPress::SpecialKey key, const QString &characters = {}) {
        KeyPress press;
        press.specialKey = key;
        press.characters = characters;
        return press;
    };
    KeyPress function11 = special(function);
    function11.functionNumber = 11;
    struct Named
    {
        KeyPress press;
        QString literal;
        QString name;
    };
    const QList<Named> keys{
        {special(escape, u"\x1b"_s), u"\x1b"_s, u"Esc"_s},
        {special(enter, u"\r"_s), u"\r"_s, u"↩"_s},
        {special(forwardDelete, u"\x7f"_s), u"\x7f"_s, u"⌦"_s},
        {special(insert), u""_s, u"Insert"_s},
        {special(home), u""_s, u"↖"_s},
        {special(end), u""_s, u"↘"_s},
        {special(pageUp), u""_s, u"⇞"_s},
        {special(pageDown), u""_s, u"⇟"_s},
        {function11, u""_s, u"F11"_s},
        {special(none, u"-"_s), u"-"_s, u"−"_s},
        {special(none, u"k"_s), u"K"_s, u"K"_s},
        {special(backspace), u"Delete"_s, u"Delete"_s},
    };
    for (const Named &key : keys) {
        KeyPress press = key.press;
        press.control = true;
        const QStringList literal =
            key.literal.isEmpty() ? QStringList{u"⌃"_s} : QStringList{u"⌃"_s, key.literal};
        EXPECT_EQ(keyTokens(press), literal);
        EXPECT_EQ(keyTokens(press, KeyNaming::all), (QStringList{u"⌃"_s, key.name}));
    }
}

TEST(KeyTranslation, PlusAndDigitsAreReachedOnEveryLayout)
{
    const auto tokens = [](const QString &plain, const QString &shifted, bool shift,
                           KeyNaming naming) {
        KeyPress press;
        press.control = true;
        press.shift = shift;
        press.characters = plain;
        press.shiftedCharacters = shifted;
        return keyTokens(press, naming).join(u' ');
    };
    // American and Czech.
    EXPECT_EQ(tokens(u"="_s, u"+"_s, true, KeyNaming::all), u"⌃ +"_s);
    EXPECT_EQ(tokens(u"="_s, u"+"_s, false, KeyNaming::all), u"⌃ ="_s);
    EXPECT_EQ(tokens(u"="_s, u"+"_s, true, KeyNaming::literal), u"⌃ ⇧ ="_s);
    EXPECT_EQ(tokens(u"+"_s, u"1"_s, false, KeyNaming::all), u"⌃ +"_s);
    EXPECT_EQ(tokens(u"é"_s, u"0"_s, false, KeyNaming::all), u"⌃ 0"_s);
    EXPECT_EQ(tokens(u"é"_s, u"0"_s, true, KeyNaming::all), u"⌃ ⇧ 0"_s);
    EXPECT_EQ(tokens(u"é"_s, u"0"_s, false, KeyNaming::literal), u"⌃ É"_s);
    EXPECT_EQ(tokens(u"0"_s, u")"_s, false, KeyNaming::all), u"⌃ 0"_s);
}

namespace {

/// A press that is to give the tokens.
KeyPress pressOf(const QStringList &tokens)
{
    using enum KeyPress::SpecialKey;
    static const QHash<QString, KeyPress::SpecialKey> special{
        {u"Delete"_s, backspace}, {u"Tab"_s, tab},       {u"←"_s, leftArrow}, {u"→"_s, rightArrow},
        {u"↑"_s, upArrow},        {u"↓"_s, downArrow},   {u"Esc"_s, escape},  {u"↩"_s, enter},
        {u"⌦"_s, forwardDelete},  {u"Insert"_s, insert}, {u"↖"_s, home},      {u"↘"_s, end},
        {u"⇞"_s, pageUp},         {u"⇟"_s, pageDown}};
    KeyPress press;
    press.control = tokens.contains(u"⌃"_s);
    press.option = tokens.contains(u"⌥"_s);
    press.shift = tokens.contains(u"⇧"_s);
    press.command = tokens.contains(u"⌘"_s);
    const QString &key = tokens.last();
    press.specialKey = special.value(key, none);
    if (press.specialKey != none)
        return press;
    if (key.size() > 1 && key.front() == u'F') {
        press.specialKey = function;
        press.functionNumber = key.mid(1).toInt();
    } else {
        press.characters = key == u"Mezerník"_s ? u" "_s : key == u"−"_s ? u"-"_s : key.toLower();
    }
    return press;
}

} // namespace

TEST(KeyTranslation, EveryShortcutOfADesktopCanBePressedButItsOwnKeys)
{
    for (const auto family :
         {platform::DesktopFamily::gnome, platform::DesktopFamily::kde,
          platform::DesktopFamily::xfce, platform::DesktopFamily::other}) {
        for (const DesktopShortcut &entry : DesktopLibrary::of(family)) {
            const QStringList &keys = entry.shortcut.keys;
            // Only its desktop's settings tell.
            if (keys.isEmpty())
                continue;
            const bool isDesktops = keys.contains(u"Print"_s);
            EXPECT_EQ(KeyNames::canBePressed(keys), !isDesktops) << qPrintable(entry.shortcut.id);
            if (isDesktops)
                continue;
            EXPECT_EQ(keyTokens(pressOf(keys), KeyNaming::all), keys)
                << qPrintable(entry.shortcut.id);
        }
    }
}

TEST(KeyTranslation, APressIsReadAsWhatIsAskedForWhereItCan)
{
    const auto tokens = [](const QString &plain, const QString &shifted, bool shift,
                           const QString &asked) {
        const KeyPress press{
            .control = true, .shift = shift, .characters = plain, .shiftedCharacters = shifted};
        return keyTokens(press, asked.split(u' ')).join(u' ');
    };
    // American.
    EXPECT_EQ(tokens(u"/"_s, u"?"_s, true, u"⌃ ?"_s), u"⌃ ?"_s);
    EXPECT_EQ(tokens(u"/"_s, u"?"_s, true, u"⌃ ⇧ ?"_s), u"⌃ ⇧ ?"_s);
    EXPECT_EQ(tokens(u"/"_s, u"?"_s, true, u"⌃ ⇧ /"_s), u"⌃ ⇧ /"_s);
    EXPECT_EQ(tokens(u"="_s, u"+"_s, true, u"⌃ ⇧ +"_s), u"⌃ ⇧ +"_s);
    EXPECT_EQ(tokens(u"="_s, u"+"_s, true, u"⌃ ⇧ ="_s), u"⌃ ⇧ ="_s);
    // Czech: a digit without Shift, and the letter beside it.
    EXPECT_EQ(tokens(u"+"_s, u"1"_s, false, u"⌃ 1"_s), u"⌃ 1"_s);
    EXPECT_EQ(tokens(u"+"_s, u"1"_s, true, u"⌃ 1"_s), u"⌃ 1"_s);
    EXPECT_EQ(tokens(u"+"_s, u"1"_s, false, u"⌃ +"_s), u"⌃ +"_s);
    EXPECT_EQ(tokens(u"č"_s, u"4"_s, false, u"⌃ Č"_s), u"⌃ Č"_s);
    // Other presses stay what they are.
    EXPECT_EQ(tokens(u"/"_s, u"?"_s, false, u"⌃ ?"_s), u"⌃ /"_s);
    EXPECT_EQ(tokens(u"/"_s, u"?"_s, true, u"⌃ /"_s), u"⌃ ⇧ /"_s);
    EXPECT_EQ(tokens(u"s"_s, u"S"_s, true, u"⌃ S"_s), u"⌃ ⇧ S"_s);
    EXPECT_EQ(tokens(u"s"_s, u"S"_s, true, u"⌃ ⇧ S"_s), u"⌃ ⇧ S"_s);
    EXPECT_EQ(tokens(u"1"_s, u"!"_s, true, u"⌃ 1"_s), u"⌃ ⇧ 1"_s);
}

TEST(KeyTranslation, ANamedKeyKeepsItsNameWhateverIsAsked)
{
    KeyPress press;
    press.specialKey = KeyPress::SpecialKey::escape;
    press.characters = u"\x1b"_s;
    for (const QStringList &asked : {QStringList{u"⎋"_s}, QStringList{u"Esc"_s}, QStringList()})
        EXPECT_EQ(keyTokens(press, asked), QStringList{u"Esc"_s});
}

} // namespace hmatnik
