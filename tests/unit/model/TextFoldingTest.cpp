#include "model/TextFolding.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

const QLocale czech(u"cs_CZ"_s);
const QLocale turkish(u"tr_TR"_s);
const QLocale azerbaijani(u"az_AZ"_s);

} // namespace

TEST(TextFolding, CzechIgnoresCaseAndHeedsDiacritics)
{
    const TextFolding folding(czech);
    EXPECT_EQ(folding.withoutCase(u"KOPÍROVAT"_s), folding.withoutCase(u"kopírovat"_s));
    EXPECT_EQ(
        folding.withoutCase(u"PŘÍLIŠ ŽLUŤOUČKÝ KŮŇ ÚPĚL ĎÁBELSKÉ ÓDY"_s),
        u"příliš žluťoučký kůň úpěl ďábelské ódy"_s);
    EXPECT_NE(folding.withoutCase(u"kopirovat"_s), folding.withoutCase(u"kopírovat"_s));
    EXPECT_NE(folding.withoutCase(u"u"_s), folding.withoutCase(u"ů"_s));
    EXPECT_NE(folding.withoutCase(u"ú"_s), folding.withoutCase(u"ů"_s));
}

TEST(TextFolding, CanonicallyEquivalentTextsFoldAlike)
{
    const TextFolding folding(czech);
    EXPECT_EQ(folding.withoutCase(u"KOPI\u0301ROVAT"_s), u"kopírovat"_s);
    EXPECT_EQ(folding.withoutCase(u"\u212B"_s), u"å"_s); // Ångström sign
    EXPECT_EQ(folding.withoutCase(u"\u01F0"_s), folding.withoutCase(u"J\u030C"_s));
}

TEST(TextFolding, FoldsByUnicodeElsewhere)
{
    const TextFolding folding(czech);
    EXPECT_EQ(folding.withoutCase(u"STRASSE"_s), folding.withoutCase(u"straße"_s));
    EXPECT_EQ(folding.withoutCase(u"STRAẞE"_s), folding.withoutCase(u"straße"_s));
    EXPECT_EQ(folding.withoutCase(u"ΣΊΣΥΦΟΣ"_s), folding.withoutCase(u"σίσυφος"_s));
    EXPECT_EQ(folding.withoutCase(u"I"_s), u"i"_s);
    EXPECT_NE(folding.withoutCase(u"ı"_s), u"i"_s);
    EXPECT_EQ(folding.withoutCase(u"İ"_s), u"i\u0307"_s);
    EXPECT_EQ(folding.withoutCase(u"𐐀"_s), u"𐐨"_s);
}

TEST(TextFolding, TurkishPairsTheDottedAndTheDotlessLetter)
{
    for (const QLocale &locale : {turkish, azerbaijani}) {
        const TextFolding folding(locale);
        EXPECT_EQ(folding.withoutCase(u"KIRMIZI"_s), u"kırmızı"_s);
        EXPECT_EQ(folding.withoutCase(u"İSTANBUL"_s), u"istanbul"_s);
        EXPECT_EQ(folding.withoutCase(u"I\u0307STANBUL"_s), u"istanbul"_s);
        EXPECT_NE(folding.withoutCase(u"I"_s), folding.withoutCase(u"i"_s));
        EXPECT_NE(folding.withoutCase(u"ISTANBUL"_s), u"istanbul"_s);

        EXPECT_EQ(folding.withoutCaseAndDiacritics(u"İSTANBUL"_s), u"istanbul"_s);
        EXPECT_EQ(folding.withoutCaseAndDiacritics(u"KIRMIZI"_s), u"kırmızı"_s);
        EXPECT_EQ(folding.withoutCaseAndDiacritics(u"ÇIĞ"_s), u"cıg"_s);
    }
}

TEST(TextFolding, WithoutDiacriticsLettersLoseTheirMarks)
{
    const TextFolding folding(czech);
    EXPECT_EQ(folding.withoutCaseAndDiacritics(u"Kopírovat"_s), u"kopirovat"_s);
    EXPECT_EQ(folding.withoutCaseAndDiacritics(u"KOPIROVAT"_s), u"kopirovat"_s);
    EXPECT_EQ(folding.withoutCaseAndDiacritics(u"Kopi\u0301rovat"_s), u"kopirovat"_s);
    EXPECT_EQ(
        folding.withoutCaseAndDiacritics(u"Příliš Žluťoučký KŮŇ"_s), u"prilis zlutoucky kun"_s);
    EXPECT_EQ(folding.withoutCaseAndDiacritics(u"İstanbul"_s), u"istanbul"_s);
    EXPECT_EQ(folding.withoutCaseAndDiacritics(u"x\u030C\u0323"_s), u"x"_s);
    EXPECT_EQ(folding.withoutCaseAndDiacritics(u"\u030C"_s), QString());
}

TEST(TextFolding, OddTextsDoNoHarm)
{
    for (const QLocale &locale : {czech, turkish}) {
        const TextFolding folding(locale);
        EXPECT_EQ(folding.withoutCase(QString()), QString());
        EXPECT_EQ(folding.withoutCaseAndDiacritics(QString()), QString());
        const QString high = u"a"_s + QChar(0xD800);
        const QString low = QChar(0xDC00) + u"A"_s;
        EXPECT_EQ(folding.withoutCase(high).size(), 2);
        EXPECT_EQ(folding.withoutCaseAndDiacritics(high).size(), 2);
        EXPECT_EQ(folding.withoutCaseAndDiacritics(low).size(), 2);
        EXPECT_EQ(folding.withoutCaseAndDiacritics(u"😀Á😀"_s), u"😀a😀"_s);
        EXPECT_EQ(folding.withoutCaseAndDiacritics(u"a\U0001D165b"_s), u"ab"_s);
    }
}

} // namespace hmatnik::test
