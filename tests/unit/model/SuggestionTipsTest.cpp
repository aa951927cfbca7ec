#include "model/SuggestionTips.h"

#include "FakeDesktop.h"
#include "model/AppModel.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

class SuggestionTipsTest : public testing::Test
{
protected:
    SuggestionTipsTest() { model.setLearningMode(true); }

    const QList<platform::Notification> &shown() const { return fake.notifications->shown(); }
    void passSeconds(int seconds) { fake.clock->setNow(fake.clock->now().addSecs(seconds)); }

    FakeDesktop fake;
    AppModel model{fake.desktop(), QLocale(u"cs_CZ"_s)};
    bool windowShown = false;
    bool overlayShown = false;
    QStringList tokens;
    std::unique_ptr<SuggestionTips> tips = std::make_unique<SuggestionTips>(
        model, SuggestionTips::Shell{
                   .isMainWindowShown = [this] { return windowShown; },
                   .isOverlayShown = [this] { return overlayShown; },
                   .showMainWindow =
                       [this](const QString &token) {
                           tokens.append(token);
                       }});
};

} // namespace

TEST_F(SuggestionTipsTest, ASuggestionIsShownWithTitleSentenceKeysAndActions)
{
    model.recordMouseAction(u"Kopírovat"_s);
    const platform::Notification expected{
        .title = u"Kopírovat"_s,
        .body =
            u"Položku „Kopírovat“ jste použili myší. Příště to zkuste rychleji klávesami.\n⌘ C"_s,
        .actions = {{u"practice"_s, u"Procvičit"_s}, {u"mute"_s, u"Nezobrazovat"_s}}};
    EXPECT_EQ(shown(), QList{expected});
}

TEST_F(SuggestionTipsTest, KeysHaveTheNamesThatAreChosen)
{
    model.setKeyStyle(KeyStyle::pc);
    model.recordMouseAction(u"Kopírovat"_s);
    ASSERT_EQ(shown().size(), 1);
    EXPECT_TRUE(shown().first().body.endsWith(u"\nSuper C"_s));
}

TEST_F(SuggestionTipsTest, WhatNoPressAnswersIsNotOfferedForPractice)
{
    const auto imported = [](const QString &title, const QStringList &keys) {
        return Shortcut{u"menu-"_s + title,          title,        keys,
                        Shortcut::Category::zaklady, {u"Pokus"_s}, {}};
    };
    const auto actions = [this](const QString &title) {
        model.recordMouseAction(title);
        QStringList titles;
        for (const platform::Notification::Action &action : shown().last().actions)
            titles.append(action.title);
        return titles.join(u' ');
    };
    model.setCustomShortcuts(
        {imported(u"Xxx jedna"_s, {u"F11"_s}), imported(u"Xxx dva"_s, {u"⌃"_s, u"⌦"_s}),
         imported(u"Xxx tři"_s, {u"Print"_s}), imported(u"Xxx čtyři"_s, {u"Media Play"_s}),
         imported(u"Xxx pět"_s, {u"⌃"_s, u"K"_s, u"⌃"_s, u"S"_s})});
    for (const QString &title : {u"Xxx jedna"_s, u"Xxx dva"_s, u"Kopírovat"_s})
        EXPECT_EQ(actions(title), u"Procvičit Nezobrazovat"_s) << qPrintable(title);
    // The last one has a key for which the notation of the Mac's library has no press.
    const QString forceQuit = u"Vynutit ukončení"_s;
    for (const QString &title : {u"Xxx tři"_s, u"Xxx čtyři"_s, u"Xxx pět"_s, forceQuit})
        EXPECT_EQ(actions(title), u"Nezobrazovat"_s) << qPrintable(title);
}

TEST_F(SuggestionTipsTest, OneInTenMinutesForTheSameShortcut)
{
    model.recordMouseAction(u"Kopírovat"_s);
    model.recordMouseAction(u"Kopírovat"_s);
    model.recordMouseAction(u"Vložit"_s);
    EXPECT_EQ(shown().size(), 2);
    passSeconds(599);
    model.recordMouseAction(u"Kopírovat"_s);
    EXPECT_EQ(shown().size(), 2);
    passSeconds(1);
    model.recordMouseAction(u"Kopírovat"_s);
    EXPECT_EQ(shown().size(), 3);
    EXPECT_EQ(shown().last().title, u"Kopírovat"_s);
    passSeconds(599);
    model.recordMouseAction(u"Kopírovat"_s);
    EXPECT_EQ(shown().size(), 3);
}

TEST_F(SuggestionTipsTest, TheSameSuggestionIsShownAgainAfterTenMinutes)
{
    model.recordMouseAction(u"Kopírovat"_s);
    passSeconds(600);
    model.recordMouseAction(u"Kopírovat"_s);
    EXPECT_EQ(shown().size(), 2);
}

TEST_F(SuggestionTipsTest, AClockSetBackSilencesNothing)
{
    model.recordMouseAction(u"Kopírovat"_s);
    passSeconds(-3600);
    model.recordMouseAction(u"Kopírovat"_s);
    EXPECT_EQ(shown().size(), 2);
}

TEST_F(SuggestionTipsTest, NoneWhileQuizOrPanelAreOpen)
{
    overlayShown = true;
    model.recordMouseAction(u"Kopírovat"_s);
    overlayShown = false;
    windowShown = true;
    model.setSelection(SidebarSelection::Kind::practice);
    model.recordMouseAction(u"Kopírovat"_s);
    EXPECT_TRUE(shown().isEmpty());
    // The window was closed on the quiz.
    windowShown = false;
    model.recordMouseAction(u"Kopírovat"_s);
    EXPECT_EQ(shown().size(), 1);
    windowShown = true;
    model.setSelection(SidebarSelection::Kind::daily);
    model.recordMouseAction(u"Vložit"_s);
    EXPECT_EQ(shown().size(), 2);
}

TEST_F(SuggestionTipsTest, NothingWithoutASuggestion)
{
    model.setLearningMode(false);
    model.recordMouseAction(u"Kopírovat"_s);
    EXPECT_TRUE(shown().isEmpty());
    model.setSmartSuggestions(false);
    model.recordMouseAction(u"Kopírovat"_s);
    EXPECT_TRUE(shown().isEmpty());
}

TEST_F(SuggestionTipsTest, PractisingOpensANewRoundWithTheShortcut)
{
    model.setPracticeIndex(3);
    model.setPracticeScore(2);
    const QSignalSpy requests(&model, &AppModel::practiceRequested);
    model.recordMouseAction(u"Kopírovat"_s);
    fake.notifications->choose(u"practice"_s, u"token"_s);
    EXPECT_EQ(model.selection(), SidebarSelection::Kind::practice);
    EXPECT_EQ(model.practiceIndex(), 0);
    EXPECT_EQ(model.practiceScore(), 0);
    EXPECT_EQ(requests.count(), 1);
    EXPECT_EQ(tokens, QStringList{u"token"_s});
    const auto asked = model.takePracticeRequest();
    ASSERT_TRUE(asked);
    EXPECT_EQ(asked->id, u"copy"_s);
    EXPECT_EQ(model.takePracticeRequest(), std::nullopt);
}

TEST_F(SuggestionTipsTest, TheShortcutOfTheMessageIsMeantNotTheNewest)
{
    model.recordMouseAction(u"Kopírovat"_s);
    overlayShown = true;
    model.recordMouseAction(u"Vložit"_s);
    fake.notifications->choose(u"practice"_s);
    EXPECT_EQ(model.takePracticeRequest()->id, u"copy"_s);
}

TEST_F(SuggestionTipsTest, TurnedOffStaysOffUntilTurnedOnAgain)
{
    EXPECT_FALSE(model.isTipsChoiceMade());
    model.recordMouseAction(u"Kopírovat"_s);
    fake.notifications->choose(u"mute"_s);
    EXPECT_FALSE(model.tipsEnabled());
    EXPECT_EQ(fake.preferences->value(u"tipNotifications"_s), QVariant(false));
    EXPECT_TRUE(tokens.isEmpty());
    model.recordMouseAction(u"Vložit"_s);
    EXPECT_EQ(shown().size(), 1);
    EXPECT_EQ(model.usageCounts().value(u"paste"_s), 1);

    const AppModel restarted(fake.desktop(), QLocale(u"cs_CZ"_s));
    EXPECT_FALSE(restarted.tipsEnabled());
    EXPECT_TRUE(restarted.isTipsChoiceMade());

    model.setTipsEnabled(true);
    model.recordMouseAction(u"Vložit"_s);
    EXPECT_EQ(shown().size(), 2);
}

TEST_F(SuggestionTipsTest, AStoredChoiceOfAnotherTypeIsNone)
{
    fake.preferences->preset(u"tipNotifications"_s, u"false"_s);
    const AppModel restarted(fake.desktop(), QLocale(u"cs_CZ"_s));
    EXPECT_TRUE(restarted.tipsEnabled());
    EXPECT_FALSE(restarted.isTipsChoiceMade());
}

TEST_F(SuggestionTipsTest, TextsFromElsewhereAreBoundedAndOneLineEach)
{
    const QString face = u"😀"_s;
    const Shortcut hostile{
        u"custom-1"_s,
        u'x' + face.repeated(5000),
        QStringList(1000, u"⌘"_s),
        Shortcut::Category::text,
        {},
        {}};
    const platform::Notification message = SuggestionTips::message(
        hostile, u"a\nb\u2028c\td"_s + QChar(0) + face.repeated(5000), KeyStyle::mac, true);
    EXPECT_EQ(message.title, u'x' + face.repeated(49) + u'…');
    const QStringList lines = message.body.split(u'\n');
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].startsWith(u"a b c d "_s));
    EXPECT_EQ(lines[0].size(), 301);
    EXPECT_EQ(lines[1].size(), 101);
    EXPECT_TRUE(message.body.isValidUtf16());
    EXPECT_TRUE(message.title.isValidUtf16());
}

TEST_F(SuggestionTipsTest, ActionsThatComeTooLateDoNothing)
{
    model.recordMouseAction(u"Kopírovat"_s);
    tips.reset();
    fake.notifications->choose(u"mute"_s);
    fake.notifications->choose(u"practice"_s);
    EXPECT_TRUE(model.tipsEnabled());
    EXPECT_TRUE(tokens.isEmpty());
}

} // namespace hmatnik::test
