#include "model/ShortcutPool.h"

#include "model/ShortcutLibrary.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

const QLocale czech(u"cs_CZ"_s);

Shortcut custom(const QString &title, const QString &detail = {}, const QStringList &keys = {})
{
    return {
        .id = u"custom-"_s + title,
        .title = title,
        .keys = keys,
        .category = Shortcut::Category::text,
        .apps = {},
        .detail = detail,
    };
}

/// Positions counted from the first custom record.
std::vector<int> customMatches(const ShortcutPool &pool, const QString &text)
{
    std::vector<int> positions;
    for (const int position : pool.containing(text)) {
        if (position >= 58)
            positions.push_back(position - 58);
    }
    return positions;
}

std::vector<int> plainMatches(const ShortcutPool &pool, const QString &text)
{
    std::vector<int> positions;
    for (int i = 0; i < pool.size(); ++i) {
        const Shortcut &shortcut = pool.at(i);
        if (shortcut.title.contains(text, Qt::CaseInsensitive) ||
            shortcut.detail.contains(text, Qt::CaseInsensitive) ||
            shortcut.keys.join(QString()).contains(text, Qt::CaseInsensitive))
            positions.push_back(i);
    }
    return positions;
}

} // namespace

TEST(ShortcutPool, IsTheLibraryFollowedByTheCustomRecords)
{
    ShortcutPool pool(czech);
    EXPECT_EQ(pool.records(), ShortcutLibrary::all());
    const QList<Shortcut> own{custom(u"A"_s), custom(u"B"_s), ShortcutLibrary::all().first()};
    pool.setCustomShortcuts(own);
    EXPECT_EQ(pool.records(), ShortcutLibrary::all() + own);
    EXPECT_EQ(pool.size(), 61);
    EXPECT_EQ(pool.at(59).title, u"B"_s);
    EXPECT_EQ(ShortcutLibrary::all().size(), 58);
}

TEST(ShortcutPool, FindsEveryFieldOfItsOwn)
{
    ShortcutPool pool(czech);
    pool.setCustomShortcuts({
        custom(u"Alfa"_s, u"beta"_s, {u"⌘"_s, u"Gama"_s}),
        custom(u"beta"_s, u"gama"_s, {u"⌘"_s, u"Alfa"_s}),
    });
    EXPECT_EQ(customMatches(pool, u"ALFA"_s), (std::vector{0, 1}));
    EXPECT_EQ(customMatches(pool, u"⌘gam"_s), std::vector{0});
    EXPECT_EQ(customMatches(pool, u"⌘A"_s), std::vector{1});
    EXPECT_EQ(customMatches(pool, u"⌘ A"_s), std::vector<int>());
    // Never across two texts.
    EXPECT_EQ(customMatches(pool, u"alfabeta"_s), std::vector<int>());
    EXPECT_EQ(customMatches(pool, u"beta⌘"_s), std::vector<int>());
    EXPECT_EQ(customMatches(pool, u"gamabeta"_s), std::vector<int>());
    // Neither the id nor the category is searched.
    EXPECT_EQ(customMatches(pool, u"custom"_s), std::vector<int>());
}

TEST(ShortcutPool, TheEmptyTextIsInEveryRecord)
{
    ShortcutPool pool(czech);
    pool.setCustomShortcuts({custom(QString())});
    const auto positions = pool.containing(QString());
    ASSERT_EQ(positions.size(), 59U);
    for (int i = 0; i < 59; ++i)
        EXPECT_EQ(positions[std::size_t(i)], i);
}

TEST(ShortcutPool, AMatchDoesNotCutALetterOffItsMark)
{
    ShortcutPool pool(czech);
    pool.setCustomShortcuts({
        custom(u"x\u030C"_s), // no composed form
        custom(u"x\u030C x"_s),
        custom(u"e\u0301"_s),      // composes to é
        custom(u"\u1EB9\u0301"_s), // ẹ with an acute, composes only in part
        custom(u"x\U0001D165"_s),  // a mark beyond the first plane
        custom(u"❤\uFE0F"_s),      // a variation selector is no mark of the letter
        custom(u"x\u0416"_s),
    });
    EXPECT_EQ(customMatches(pool, u"x"_s), (std::vector{1, 6}));
    EXPECT_EQ(customMatches(pool, u"X\u030C"_s), (std::vector{0, 1}));
    EXPECT_EQ(customMatches(pool, u"é"_s), std::vector{2});
    EXPECT_EQ(customMatches(pool, u"E\u0301"_s), std::vector{2});
    EXPECT_EQ(customMatches(pool, u"e"_s), std::vector<int>());
    EXPECT_EQ(customMatches(pool, u"ẹ"_s), std::vector<int>());
    EXPECT_EQ(customMatches(pool, u"❤"_s), std::vector{5});
}

TEST(ShortcutPool, NoMarkOfAnyScriptIsCutOff)
{
    // Every mark, and what stands beside it in the table of characters, mostly none.
    std::set<char32_t> characters;
    for (char32_t c = 0x80; c < 0x10FFFF; ++c) {
        if (QChar::isMark(c))
            characters.insert({c - 1, c, c + 1});
    }
    ASSERT_GT(characters.size(), 2000U);
    const TextFolding folding(czech);
    QList<Shortcut> own;
    std::vector<int> expected;
    for (const char32_t c : characters) {
        const QString following = QString::fromUcs4(&c, 1);
        // Folding makes a letter of a mark in one place, the Greek iota that is written below.
        const bool isMark = QChar::isMark(folding.withoutCase(following).toUcs4().value(0));
        const bool isSelector = c >= 0xFE00 && c <= 0xFE0F;
        if (!isMark || isSelector)
            expected.push_back(int(own.size()));
        own.append(custom(u'ж' + following));
    }
    ShortcutPool pool(czech);
    pool.setCustomShortcuts(own);
    EXPECT_EQ(customMatches(pool, u"ж"_s), expected);
}

TEST(ShortcutPool, FollowsTheLocale)
{
    const QList<Shortcut> own{custom(u"KIRMIZI"_s), custom(u"İstanbul"_s)};
    ShortcutPool turkish(QLocale(u"tr_TR"_s));
    turkish.setCustomShortcuts(own);
    EXPECT_EQ(customMatches(turkish, u"kırmızı"_s), std::vector{0});
    EXPECT_EQ(customMatches(turkish, u"kirmizi"_s), std::vector<int>());
    EXPECT_EQ(customMatches(turkish, u"istanbul"_s), std::vector{1});
    EXPECT_EQ(customMatches(turkish, u"ISTANBUL"_s), std::vector<int>());

    ShortcutPool other(czech);
    other.setCustomShortcuts(own);
    EXPECT_EQ(customMatches(other, u"kirmizi"_s), std::vector{0});
    EXPECT_EQ(customMatches(other, u"kırmızı"_s), std::vector<int>());
    EXPECT_EQ(customMatches(other, u"İSTANBUL"_s), std::vector{1});
    EXPECT_EQ(customMatches(other, u"istanbul"_s), std::vector<int>());
    EXPECT_EQ(customMatches(other, u"stanbul"_s), std::vector{1});
}

TEST(ShortcutPool, OddTextsDoNoHarm)
{
    ShortcutPool pool(czech);
    pool.setCustomShortcuts({
        custom(QString(), QString(), {}),
        custom(QString(QChar(0xD800)), QString(QChar(0xDC00)), {QString(QChar(0xDBFF))}),
        custom(u"nul\0l"_s),
        custom(u"\uFFFF\uFFFE\U0010FFFF"_s),
        custom(u"\u0300\u0301"_s),
    });
    for (const QString &text :
         {QString(QChar(0xD800)), QString(QChar(0xDC00)), u"\u0300"_s, u"\uFFFF"_s, u"\u00FF"_s,
          QString(100'000, u'a'), u"😀"_s})
        for (const int position : pool.containing(text))
            EXPECT_LT(position, pool.size());
    EXPECT_EQ(customMatches(pool, u"nul\0"_s), std::vector{2});
    EXPECT_EQ(customMatches(pool, u"\U0010FFFF"_s), std::vector{3});
}

TEST(ShortcutPool, AgreesWithPlainSearchAfterAnyChange)
{
    // Letters without marks, so that plain case-insensitive search has the same answer.
    QRandomGenerator random(20250101);
    const QString letters = u"abAB čÉ⌘1"_s;
    const auto text = [&](int longest) {
        QString result;
        for (int i = random.bounded(longest + 1); i > 0; --i)
            result += letters.at(random.bounded(int(letters.size())));
        return result;
    };
    ShortcutPool pool(czech);
    QList<Shortcut> own;
    for (int round = 0; round < 300; ++round) {
        const int change = random.bounded(4);
        const auto at = own.isEmpty() ? 0 : random.bounded(own.size());
        if (change == 0 && !own.isEmpty())
            own.removeAt(at);
        else if (change == 1 && !own.isEmpty())
            own[at] = custom(text(6), text(12), {text(2), text(2)});
        else
            own.append(custom(text(6), text(12), {text(2), text(2)}));
        if (round % 100 == 99)
            own.clear();
        pool.setCustomShortcuts(own);
        ASSERT_EQ(pool.records(), ShortcutLibrary::all() + own);
        const QString query = text(4);
        ASSERT_EQ(pool.containing(query), plainMatches(pool, query))
            << round << ' ' << query.toStdString();
    }
    for (const auto &query :
         {u"okno"_s, u"o"_s, u"schránky"_s, u"aplik"_s, u"⌘C"_s, u"mezerník"_s, u"."_s, u"xyz"_s})
        EXPECT_EQ(pool.containing(query), plainMatches(pool, query)) << query.toStdString();
}

TEST(ShortcutPool, WhatStaysIsFoundWhenOthersGo)
{
    // Characters that nothing else has, so that the pool knows whether they occur at all.
    const Shortcut first = custom(u"ж\0"_s);
    ShortcutPool pool(czech);
    pool.setCustomShortcuts({first, custom(u"druhá"_s)});
    pool.setCustomShortcuts({first});
    EXPECT_EQ(customMatches(pool, u"ж"_s), std::vector{0});
    EXPECT_EQ(customMatches(pool, u"\0"_s), std::vector{0});
    pool.setCustomShortcuts({});
    EXPECT_EQ(customMatches(pool, u"ж"_s), std::vector<int>());
}

TEST(ShortcutPool, FindsEveryPieceOfEveryText)
{
    const ShortcutPool pool(czech);
    for (const Shortcut &shortcut : ShortcutLibrary::all()) {
        for (const int length : {1, 2, 5, 12}) {
            for (qsizetype at = 0; at + length <= shortcut.detail.size(); at += 2) {
                const QString piece = shortcut.detail.mid(at, length);
                ASSERT_EQ(pool.containing(piece), plainMatches(pool, piece)) << piece.toStdString();
            }
        }
    }
}

TEST(ShortcutPool, ModifiersAreWholeTokens)
{
    ShortcutPool pool(czech);
    pool.setCustomShortcuts({
        custom(u"a"_s, {}, {u"Fn"_s, u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s, u"K"_s}),
        custom(u"b"_s, {}, {u"fn"_s, u"cmd"_s, u"⌘⇧"_s, u"K"_s}),
        custom(u"c"_s),
        custom(u"d"_s, {}, {u"K"_s, u"⌥"_s}),
    });
    const ModifierFilters all(allModifierFilters.begin(), allModifierFilters.end());
    EXPECT_EQ(pool.modifiersAt(58), ShortcutPool::maskOf(all));
    EXPECT_EQ(pool.modifiersAt(59), 0);
    EXPECT_EQ(pool.modifiersAt(60), 0);
    EXPECT_EQ(pool.modifiersAt(61), ShortcutPool::maskOf({ModifierFilter::option}));
    EXPECT_EQ(ShortcutPool::maskOf({}), 0);
}

TEST(ShortcutPool, NamesOfAPcsKeysFindThemToo)
{
    ShortcutPool pool(czech);
    pool.setCustomShortcuts(
        {custom(u"První"_s, {}, {u"⌃"_s, u"S"_s}), custom(u"Druhý"_s, {}, {u"⌥"_s, u"⇞"_s}),
         custom(u"Třetí"_s, {}, {u"⌃"_s, u"⇧"_s, u"Delete"_s})});
    EXPECT_TRUE(customMatches(pool, u"ctrl"_s).empty());

    pool.setKeyStyle(KeyStyle::pc);
    EXPECT_EQ(customMatches(pool, u"CTRL"_s), std::vector({0, 2}));
    EXPECT_EQ(customMatches(pool, u"alt"_s), std::vector({1}));
    EXPECT_EQ(customMatches(pool, u"shift"_s), std::vector({2}));
    EXPECT_EQ(customMatches(pool, u"backspace"_s), std::vector({2}));
    for (const QString &text :
         {u"ctrl+s"_s, u"Ctrl S"_s, u"ctrl + S"_s, u"Ctrl+ s"_s, u"ctrl  s"_s})
        EXPECT_EQ(customMatches(pool, text), std::vector({0, 2})) << qPrintable(text);
    for (const QString &text : {u"+"_s, u" + "_s, u"++"_s})
        EXPECT_TRUE(customMatches(pool, text).empty()) << "what stands between is no key";
    EXPECT_EQ(customMatches(pool, u"page up"_s), std::vector({1}));
    EXPECT_EQ(customMatches(pool, u"Alt+Page Up"_s), std::vector({1}));
    EXPECT_EQ(customMatches(pool, u"ctrl+shift+backspace"_s), std::vector({2}));
    EXPECT_EQ(customMatches(pool, u"⌃S"_s), std::vector({0})) << "tokens find as ever";
    EXPECT_EQ(customMatches(pool, u"druhý"_s), std::vector({1}));
    EXPECT_EQ(customMatches(pool, u"⇞"_s), std::vector({1}));

    pool.setKeyStyle(KeyStyle::mac);
    EXPECT_TRUE(customMatches(pool, u"ctrl"_s).empty());
}

TEST(ShortcutPool, ACombinationIsFoundHoweverItIsWritten)
{
    ShortcutPool pool(czech);
    pool.setCustomShortcuts(
        {custom(u"První"_s, {}, {u"⇧"_s, u"⌘"_s, u"S"_s}), custom(u"Druhý"_s, {}, {u"⌃"_s, u"−"_s}),
         custom(u"Třetí"_s, {}, {u"⌃"_s, u"⇞"_s}), custom(u"Čtvrtý"_s, {}, {u"⌃"_s, u"+"_s})});
    pool.setKeyStyle(KeyStyle::pc);
    for (const QString &text :
         {u"super+shift"_s, u"Super+Shift+S"_s, u"shift super s"_s, u"win+shift+s"_s})
        EXPECT_EQ(customMatches(pool, text), std::vector({0})) << qPrintable(text);
    for (const QString &text : {u"ctrl+-"_s, u"Ctrl -"_s, u"ctrl+−"_s})
        EXPECT_EQ(customMatches(pool, text), std::vector({1})) << qPrintable(text);
    EXPECT_EQ(customMatches(pool, u"ctrl+pgup"_s), std::vector({2}));
    for (const QString &text : {u"ctrl++"_s, u"ctrl + +"_s})
        EXPECT_EQ(customMatches(pool, text), std::vector({3})) << qPrintable(text);
    EXPECT_TRUE(customMatches(pool, u"shift+k"_s).empty()) << "another combination";

    pool.setKeyStyle(KeyStyle::mac);
    EXPECT_TRUE(customMatches(pool, u"super+shift"_s).empty());
}

TEST(ShortcutPool, KeysAreFoundByWhatPeopleCallThem)
{
    ShortcutPool pool(czech);
    pool.setCustomShortcuts(
        {custom(u"První"_s, {}, {u"⌃"_s, u"←"_s}), custom(u"Druhý"_s, {}, {u"⌘"_s, u"⇞"_s}),
         custom(u"Třetí"_s, {}, {u"⇧"_s, u"⌃"_s, u"S"_s}),
         custom(u"Čtvrtý"_s, {}, {u"Mezerník"_s})});
    pool.setKeyStyle(KeyStyle::pc);
    for (const QString &text :
         {u"šipka vlevo"_s, u"Levá šipka"_s, u"ctrl+šipka vlevo"_s, u"Ctrl + šipka doleva"_s,
          u"vlevo"_s, u"ctrl left"_s})
        EXPECT_EQ(customMatches(pool, text), std::vector({0})) << qPrintable(text);
    for (const QString &text : {u"pgup"_s, u"win"_s, u"windows"_s, u"super page up"_s})
        EXPECT_EQ(customMatches(pool, text), std::vector({1})) << qPrintable(text);
    for (const QString &text : {u"ctrl+shift+s"_s, u"shift+ctrl+s"_s, u"shift+ct"_s})
        EXPECT_EQ(customMatches(pool, text), std::vector({2})) << qPrintable(text);
    EXPECT_EQ(customMatches(pool, u"mezera"_s), std::vector({3}));
    EXPECT_TRUE(customMatches(pool, u"plus"_s).empty()) << "what stands between is no key";

    pool.setKeyStyle(KeyStyle::mac);
    EXPECT_TRUE(customMatches(pool, u"šipka vlevo"_s).empty());
}

TEST(ShortcutPool, AnotherLibraryTakesTheFirstPlaces)
{
    ShortcutPool pool(czech);
    const Shortcut own = custom(u"Moje"_s, {}, {u"⌃"_s, u"K"_s});
    pool.setCustomShortcuts({own});
    const Shortcut other = custom(u"Jiná"_s, {}, {u"⌥"_s, u"J"_s});
    pool.setKeyStyle(KeyStyle::pc);
    pool.setLibrary({other});
    EXPECT_EQ(pool.records(), (QList<Shortcut>{other, own}));
    EXPECT_TRUE(pool.containing(u"Kopírovat"_s).empty());
    EXPECT_EQ(pool.containing(u"Moje"_s), std::vector({1}));
    EXPECT_EQ(pool.containing(u"ctrl+k"_s), std::vector({1}));
    EXPECT_EQ(pool.modifiersAt(0), ShortcutPool::maskOf({ModifierFilter::option}));
    pool.setCustomShortcuts({});
    EXPECT_EQ(pool.records(), QList<Shortcut>{other});
    pool.setLibrary({});
    EXPECT_EQ(pool.size(), 0);
    EXPECT_TRUE(pool.containing(u"Jiná"_s).empty());
}

} // namespace hmatnik::test
