#include "model/KeyNames.h"

#include "model/ShortcutLibrary.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

TEST(KeyNamesTest, captionsOfAMacAreTheTokens)
{
    for (const Shortcut &shortcut : ShortcutLibrary::all())
        EXPECT_EQ(KeyNames::captions(shortcut.keys, KeyStyle::mac), shortcut.keys);
    for (const QString &token : {u"⌫"_s, u"⇥"_s, u"cmd"_s, u""_s})
        EXPECT_EQ(KeyNames::caption(token, KeyStyle::mac), token);
}

TEST(KeyNamesTest, captionsOfAPcAreWhatStandsOnItsKeys)
{
    EXPECT_EQ(
        KeyNames::captions({u"Fn"_s, u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s, u"K"_s}, KeyStyle::pc),
        QStringList({u"Fn"_s, u"Ctrl"_s, u"Alt"_s, u"Shift"_s, u"Super"_s, u"K"_s}));
    // What the notation calls Delete deletes backwards.
    EXPECT_EQ(
        KeyNames::captions({u"Delete"_s, u"⌫"_s, u"⌦"_s}, KeyStyle::pc),
        QStringList({u"Backspace"_s, u"Backspace"_s, u"Delete"_s}));
    EXPECT_EQ(
        KeyNames::captions({u"↩"_s, u"⇥"_s, u"⎋"_s, u"⇞"_s, u"⇟"_s, u"↖"_s, u"↘"_s}, KeyStyle::pc),
        QStringList(
            {u"Enter"_s, u"Tab"_s, u"Esc"_s, u"Page Up"_s, u"Page Down"_s, u"Home"_s, u"End"_s}));
    for (const QString &token : {u"F11"_s, u"←"_s, u"Mezerník"_s, u"−"_s, u"cmd"_s, u""_s})
        EXPECT_EQ(KeyNames::caption(token, KeyStyle::pc), token);
}

TEST(KeyNamesTest, controlCharactersHaveTheirKeysNames)
{
    const QStringList tokens{u"\r"_s, u"\x1b"_s, u"\x7f"_s};
    EXPECT_EQ(KeyNames::captions(tokens, KeyStyle::mac), QStringList({u"↩"_s, u"⎋"_s, u"⌦"_s}));
    EXPECT_EQ(
        KeyNames::captions(tokens, KeyStyle::pc), QStringList({u"Enter"_s, u"Esc"_s, u"Delete"_s}));
    EXPECT_EQ(KeyNames::spoken(tokens, KeyStyle::mac), u"Enter Escape Delete vpřed"_s);
    EXPECT_EQ(KeyNames::spoken(tokens, KeyStyle::pc), u"Enter Escape Delete"_s);
}

TEST(KeyNamesTest, modifiersAndArrowsAreWords)
{
    const QStringList tokens{u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s, u"K"_s};
    EXPECT_EQ(KeyNames::spoken(tokens, KeyStyle::mac), u"Control Option Shift Command K"_s);
    EXPECT_EQ(KeyNames::spoken(tokens, KeyStyle::pc), u"Control Alt Shift Super K"_s);
    for (const KeyStyle style : {KeyStyle::mac, KeyStyle::pc}) {
        EXPECT_EQ(KeyNames::spoken(u"←"_s, style), u"Šipka vlevo"_s);
        EXPECT_EQ(KeyNames::spoken(QStringList(), style), QString());
    }
    EXPECT_EQ(KeyNames::spoken(u"Delete"_s, KeyStyle::mac), u"Delete"_s);
    EXPECT_EQ(KeyNames::spoken(u"Delete"_s, KeyStyle::pc), u"Backspace"_s);
    EXPECT_EQ(KeyNames::spoken(u"Esc"_s, KeyStyle::pc), u"Escape"_s);
}

TEST(KeyNamesTest, theTwoKeysThatDeleteAreToldApart)
{
    const QStringList tokens{u"Delete"_s, u"⌫"_s, u"⌦"_s};
    EXPECT_EQ(KeyNames::spoken(tokens, KeyStyle::mac), u"Delete Delete Delete vpřed"_s);
    EXPECT_EQ(KeyNames::spoken(tokens, KeyStyle::pc), u"Backspace Backspace Delete"_s);
    EXPECT_EQ(KeyNames::captions(tokens, KeyStyle::mac), tokens) << "what is drawn stays";
}

TEST(KeyNamesTest, otherTokensAreSaidAsTheyAre)
{
    for (const KeyStyle style : {KeyStyle::mac, KeyStyle::pc}) {
        EXPECT_EQ(KeyNames::spoken(u"Mezerník"_s, style), u"Mezerník"_s);
        EXPECT_EQ(KeyNames::spoken(u"cmd"_s, style), u"cmd"_s);
    }
}

TEST(KeyNamesTest, noGlyphOfTheLibraryIsLeftForTheReaderToGuess)
{
    for (const KeyStyle style : {KeyStyle::mac, KeyStyle::pc}) {
        for (const Shortcut &shortcut : ShortcutLibrary::all()) {
            for (const QChar character : KeyNames::spoken(shortcut.keys, style))
                EXPECT_TRUE(character.isLetterOrNumber() || character.isSpace())
                    << qPrintable(shortcut.id);
        }
    }
}

TEST(KeyNamesTest, typedNamesOfAPcStandForTokens)
{
    const auto tokens = [](const QString &text) {
        return KeyNames::tokensFromText(text, KeyStyle::pc).join(u' ');
    };
    EXPECT_EQ(tokens(u"Ctrl+S"_s), u"⌃ S"_s);
    EXPECT_EQ(tokens(u" ctrl +ALT+ shift + super+k"_s), u"⌃ ⌥ ⇧ ⌘ K"_s);
    EXPECT_EQ(tokens(u"⌃ + s"_s), u"⌃ S"_s);
    EXPECT_EQ(tokens(u"Control+Meta+logo"_s), u"⌃ ⌘ ⌘"_s);
    EXPECT_EQ(tokens(u"Shift+Ctrl+Esc"_s), u"⇧ ⌃ Esc"_s) << "the order stays";
    EXPECT_EQ(tokens(u"Backspace+Delete+del"_s), u"Delete ⌦ ⌦"_s);
    EXPECT_EQ(tokens(u"alt+f4+F36+f+fn"_s), u"⌥ F4 F36 F Fn"_s);
    EXPECT_EQ(tokens(u"Alt+Page Up"_s), u"⌥ ⇞"_s);
    EXPECT_EQ(tokens(u"mezerník+ENTER+Home+End+Print"_s), u"Mezerník ↩ ↖ ↘ Print"_s);
    EXPECT_EQ(tokens(u"Ctrl+-"_s), u"⌃ −"_s);
    EXPECT_EQ(tokens(u"něco+F11x"_s), u"něco F11x"_s);
    EXPECT_EQ(tokens(QString()), QString());
}

TEST(KeyNamesTest, aPlusThatNothingFollowsIsTheKey)
{
    const auto tokens = [](const QString &text) {
        return KeyNames::tokensFromText(text, KeyStyle::pc).join(u' ');
    };
    for (const QString &text : {u"Ctrl++"_s, u"ctrl + +"_s, u"Ctrl ++ "_s})
        EXPECT_EQ(tokens(text), u"⌃ +"_s) << qPrintable(text);
    EXPECT_EQ(tokens(u" + "_s), u"+"_s);
    EXPECT_EQ(tokens(u"Ctrl+"_s), u"⌃"_s) << "it is about to be typed";
    EXPECT_EQ(tokens(u"Ctrl++K"_s), u"⌃ K"_s);
    EXPECT_EQ(KeyNames::tokensFromText(u"⌃++"_s, KeyStyle::mac), QStringList(u"⌃"_s));
}

TEST(KeyNamesTest, otherNamesThatPeopleUseStandForTheSameKeys)
{
    const auto tokens = [](const QString &text) {
        return KeyNames::tokensFromText(text, KeyStyle::pc).join(u' ');
    };
    EXPECT_EQ(tokens(u"Win+Windows+PgUp+pgdn+PgDown"_s), u"⌘ ⌘ ⇞ ⇟ ⇟"_s);
    EXPECT_EQ(tokens(u"Page  Up"_s), u"⇞"_s);
    for (const QString &text :
         {u"Šipka vlevo"_s, u"šipka doleva"_s, u"levá šipka"_s, u"sipka vlevo"_s, u"Left"_s})
        EXPECT_EQ(tokens(text), u"←"_s) << qPrintable(text);
    for (const QString &text : {u"šipka vpravo"_s, u"doprava"_s, u"pravá šipka"_s, u"right"_s})
        EXPECT_EQ(tokens(text), u"→"_s) << qPrintable(text);
    EXPECT_EQ(tokens(u"nahoru+up+šipka nahoru"_s), u"↑ ↑ ↑"_s);
    EXPECT_EQ(tokens(u"dolů+dolu+down+šipka dolů"_s), u"↓ ↓ ↓ ↓"_s);
    EXPECT_EQ(tokens(u"mezernik+Mezerník+MEZERA"_s), u"Mezerník Mezerník Mezerník"_s);
    EXPECT_EQ(tokens(u"cmd+Command+option+Alt Gr+PrtScr"_s), u"⌘ ⌘ ⌥ AltGr Print"_s);
    EXPECT_EQ(tokens(u"plus+minus+tečka+Čárka"_s), u"+ − . ,"_s);
    EXPECT_EQ(tokens(u"ctrl+ß"_s), u"⌃ ß"_s) << "no key writes its capital";
}

TEST(KeyNamesTest, tokensComeInTheOrderOfShortcuts)
{
    EXPECT_EQ(
        KeyNames::inDisplayOrder({u"⌘"_s, u"K"_s, u"⇧"_s, u"Fn"_s, u"A"_s, u"⌃"_s, u"⌥"_s}),
        QStringList({u"Fn"_s, u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s, u"K"_s, u"A"_s}));
    EXPECT_TRUE(KeyNames::inDisplayOrder({}).isEmpty());
}

TEST(KeyNamesTest, everyCaptionCanBeTyped)
{
    for (const QString &token :
         {u"⌃"_s,     u"⌥"_s,        u"⇧"_s,  u"⌘"_s, u"Fn"_s, u"Delete"_s, u"⌦"_s,     u"↩"_s,
          u"Esc"_s,   u"⇞"_s,        u"⇟"_s,  u"↖"_s, u"↘"_s,  u"Insert"_s, u"Print"_s, u"Menu"_s,
          u"AltGr"_s, u"Mezerník"_s, u"F2"_s, u"−"_s, u"←"_s,  u"5"_s,      u"+"_s})
        EXPECT_EQ(
            KeyNames::tokensFromText(KeyNames::caption(token, KeyStyle::pc), KeyStyle::pc),
            QStringList(token));
}

TEST(KeyNamesTest, whatIsReadOutCanBeTyped)
{
    for (const QString &token : {u"←"_s, u"→"_s, u"↑"_s, u"↓"_s, u"↩"_s, u"⇞"_s,   u"⇟"_s,
                                 u"↖"_s, u"↘"_s, u","_s, u"."_s, u"+"_s, u"−"_s,   u"="_s,
                                 u";"_s, u"'"_s, u"["_s, u"]"_s, u"⌦"_s, u"Esc"_s, u"Mezerník"_s})
        EXPECT_EQ(
            KeyNames::tokensFromText(KeyNames::spoken(token, KeyStyle::pc), KeyStyle::pc),
            QStringList(token));
}

TEST(KeyNamesTest, typedTextOfAMacIsTakenAsItIs)
{
    EXPECT_EQ(
        KeyNames::tokensFromText(u"ctrl + S+⌘"_s, KeyStyle::mac),
        QStringList({u"ctrl"_s, u"S"_s, u"⌘"_s}));
}

TEST(KeyNamesTest, whatNoPressGivesCannotBePressed)
{
    for (const QStringList &tokens :
         {QStringList(), QStringList{u"⌃"_s}, QStringList{u"⌃"_s, u"⌘"_s},
          QStringList{u"Fn"_s, u"F11"_s}, QStringList{u"⌥"_s, u"Print"_s},
          QStringList{u"C"_s, u"⌃"_s}, QStringList{u"⌃"_s, u"A"_s, u"B"_s}, QStringList{u"Fn"_s},
          QStringList{u"Media Play"_s}, QStringList{u"Pause"_s}, QStringList{u"F36"_s}})
        EXPECT_FALSE(KeyNames::canBePressed(tokens)) << qPrintable(tokens.join(u' '));
    for (const QString &key :
         {u"F5"_s, u"Insert"_s, u"⌫"_s, u"⌦"_s, u"⎋"_s, u"⇥"_s, u"⇞"_s, u"↩"_s, u"-"_s, u"s"_s})
        EXPECT_TRUE(KeyNames::canBePressed({u"⌃"_s, key})) << qPrintable(key);
}

TEST(KeyNamesTest, theMacsNotationHasNoPressForThreeOfItsShortcuts)
{
    QStringList impossible;
    for (const Shortcut &shortcut : ShortcutLibrary::all()) {
        if (!KeyNames::canBePressed(shortcut.keys, KeyNaming::literal))
            impossible.append(shortcut.id);
    }
    EXPECT_EQ(impossible, (QStringList{u"force-quit"_s, u"desktop"_s, u"zoom-out"_s}));
    for (const QString &key :
         {u"F5"_s, u"↩"_s, u"⌦"_s, u"↖"_s, u"↘"_s, u"⇞"_s, u"⇟"_s, u"Insert"_s})
        EXPECT_FALSE(KeyNames::canBePressed({u"⌃"_s, key}, KeyNaming::literal)) << qPrintable(key);
}

TEST(KeyNamesTest, keysAreTheSameHoweverTheyAreWritten)
{
    const QList<std::pair<QString, QString>> same{
        {u"⌫"_s, u"Delete"_s}, {u"⎋"_s, u"Esc"_s},     {u"\x1b"_s, u"Esc"_s}, {u"⇥"_s, u"Tab"_s},
        {u"\r"_s, u"↩"_s},     {u"\x7f"_s, u"⌦"_s},    {u"-"_s, u"−"_s},      {u"s"_s, u"S"_s},
        {u"f11"_s, u"F11"_s},  {u"␣"_s, u"Mezerník"_s}};
    for (const auto &[one, other] : same) {
        EXPECT_TRUE(KeyNames::areSameKeys({u"⌃"_s, one}, {other, u"⌃"_s, u"⌃"_s}))
            << qPrintable(other);
        EXPECT_FALSE(KeyNames::areSameKeys({one}, {other, u"⌃"_s})) << qPrintable(other);
    }
    EXPECT_FALSE(KeyNames::areSameKeys({u"⌫"_s}, {u"⌦"_s}));
    EXPECT_FALSE(KeyNames::areSameKeys({}, {u"⌃"_s}));
}

TEST(KeyNamesTest, storedFormsAreReadExactly)
{
    for (const KeyStyle style : {KeyStyle::mac, KeyStyle::pc})
        EXPECT_EQ(KeyNames::styleFromRawValue(KeyNames::rawValue(style)), style);
    for (const QString &text : {u"PC"_s, u""_s, u"linux"_s})
        EXPECT_EQ(KeyNames::styleFromRawValue(text), std::nullopt);
}

} // namespace hmatnik::test
