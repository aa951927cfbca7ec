#include "FakeDesktop.h"
#include "model/AppModel.h"
#include "views/CardData.h"
#include "views/DailyTrio.h"
#include "views/FilterBarState.h"
#include "views/FirstAid.h"
#include "views/LibraryState.h"
#include "views/PracticeRound.h"
#include "views/Sticker.h"
#include "views/TipsState.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

/// Every screen and panel that shows keys, while they have the names of a PC or change them.
class KeyStyleTest : public testing::Test
{
protected:
    template <typename State>
    void expectFollows(State &state, void (State::*changed)())
    {
        model.setKeyStyle(KeyStyle::mac);
        const QSignalSpy changes(&state, changed);
        model.setKeyStyle(KeyStyle::pc);
        EXPECT_FALSE(changes.isEmpty());
    }

    static void expectPcKeys(const QVariantList &cards)
    {
        ASSERT_FALSE(cards.isEmpty());
        for (const QVariant &card : cards)
            expectPcKeys(card.value<CardData>());
    }

    static void expectPcKeys(const CardData &card)
    {
        SCOPED_TRACE(card.id.toStdString());
        EXPECT_FALSE(card.keys.isEmpty());
        for (const QString &glyph : {u"⌘"_s, u"⌥"_s, u"⇧"_s, u"⌃"_s}) {
            EXPECT_FALSE(card.keys.contains(glyph));
            EXPECT_FALSE(card.spoken.contains(glyph));
        }
        EXPECT_FALSE(card.spoken.contains(u"Command"_s));
    }

    FakeDesktop desktop;
    AppModel model{desktop.desktop()};
};

} // namespace

TEST_F(KeyStyleTest, Cards)
{
    LibraryState library(model);
    expectFollows(library, &LibraryState::contentsChanged);
    library.rows()->setColumns(100);
    const QVariantList cards =
        library.rows()->data(library.rows()->index(0), CardRows::CardsRole).toList();
    expectPcKeys(cards);
    EXPECT_EQ(cards.front().value<CardData>().keys, (QStringList{u"Super"_s, u"C"_s}));
    EXPECT_TRUE(cards.front().value<CardData>().spoken.endsWith(u"Super C"_s));
}

TEST_F(KeyStyleTest, Tips)
{
    TipsState tips(model);
    expectFollows(tips, &TipsState::changed);
    expectPcKeys(tips.tips());
}

TEST_F(KeyStyleTest, Pills)
{
    FilterBarState filters(model);
    expectFollows(filters, &FilterBarState::captionsChanged);
    EXPECT_EQ(
        filters.captions(), (QStringList{u"Super"_s, u"Alt"_s, u"Shift"_s, u"Ctrl"_s, u"Fn"_s}));
    EXPECT_EQ(
        filters.names(), (QStringList{u"Super"_s, u"Alt"_s, u"Shift"_s, u"Control"_s, u"Fn"_s}));
}

TEST_F(KeyStyleTest, DailyTrio)
{
    class DailyTrio trio;
    trio.setModel(&model);
    expectFollows<ScreenState>(trio, &ScreenState::changed);
    for (const QVariant &card : trio.cards())
        expectPcKeys(card.toMap().value(u"card"_s).value<CardData>());
}

TEST_F(KeyStyleTest, Sticker)
{
    class Sticker sticker;
    EXPECT_TRUE(sticker.cards().isEmpty());
    sticker.setModel(&model);
    expectFollows<ScreenState>(sticker, &ScreenState::changed);
    expectPcKeys(sticker.cards());
}

TEST_F(KeyStyleTest, FirstAid)
{
    class FirstAid aid;
    EXPECT_TRUE(aid.situations().isEmpty());
    aid.setModel(&model);
    expectFollows<ScreenState>(aid, &ScreenState::changed);
    for (const QVariant &situation : aid.situations())
        expectPcKeys(situation.toMap().value(u"cards"_s).toList());
}

TEST_F(KeyStyleTest, Quiz)
{
    PracticeRound round([](int bound) { return bound - 1; });
    round.setModel(&model);
    expectFollows<ScreenState>(round, &ScreenState::changed);
    EXPECT_EQ(round.keyCaptions().front(), u"Super"_s);
    EXPECT_EQ(round.spokenKeys().section(u' ', 0, 0), u"Super"_s);
    round.check({u"⌃"_s, u"⌥"_s, u"Delete"_s});
    EXPECT_EQ(round.capturedCaptions(), (QStringList{u"Ctrl"_s, u"Alt"_s, u"Backspace"_s}));
    EXPECT_EQ(round.capturedText(), u"Ctrl Alt Backspace"_s);
    EXPECT_EQ(round.spokenCaptured(), u"Control Alt Backspace"_s);
    EXPECT_EQ(round.captured(), (QStringList{u"⌃"_s, u"⌥"_s, u"Delete"_s})) << "tokens stay";
}

} // namespace hmatnik::test
