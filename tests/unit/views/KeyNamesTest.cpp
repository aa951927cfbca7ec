#include "views/KeyNames.h"

#include "model/ShortcutLibrary.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

TEST(KeyNamesTest, modifiersAndArrowsAreWords)
{
    EXPECT_EQ(
        KeyNames::spoken(QStringList({u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s, u"K"_s})),
        u"Control Option Shift Command K"_s);
    EXPECT_EQ(KeyNames::spoken(u"←"_s), u"Šipka vlevo"_s);
    EXPECT_EQ(KeyNames::spoken(QStringList()), QString());
}

TEST(KeyNamesTest, controlCharactersHaveGlyphsAndWords)
{
    EXPECT_EQ(KeyNames::shown(u"\r"_s), u"↩"_s);
    EXPECT_EQ(KeyNames::shown(u"\x1b"_s), u"⎋"_s);
    EXPECT_EQ(KeyNames::shown(u"\x7f"_s), u"⌦"_s);
    EXPECT_EQ(
        KeyNames::spoken(QStringList({u"⌘"_s, u"\r"_s, u"\x1b"_s, u"\x7f"_s})),
        u"Command Enter Escape Delete"_s);
}

TEST(KeyNamesTest, everyOtherCapShowsItsToken)
{
    for (const QString &token : {u"⌘"_s, u"Esc"_s, u"Delete"_s, u"Mezerník"_s, u"k"_s, u""_s})
        EXPECT_EQ(KeyNames::shown(token), token);
}

TEST(KeyNamesTest, otherTokensStayAsTheyAre)
{
    EXPECT_EQ(KeyNames::spoken(u"Mezerník"_s), u"Mezerník"_s);
    EXPECT_EQ(KeyNames::spoken(u"cmd"_s), u"cmd"_s);
}

TEST(KeyNamesTest, noGlyphOfTheLibraryIsLeftForTheReaderToGuess)
{
    for (const Shortcut &shortcut : ShortcutLibrary::all()) {
        for (const QChar character : KeyNames::spoken(shortcut.keys))
            EXPECT_TRUE(character.isLetterOrNumber() || character.isSpace())
                << qPrintable(shortcut.id);
    }
}

} // namespace hmatnik::test
