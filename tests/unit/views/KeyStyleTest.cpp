#include "FakeDesktop.h"
#include "model/AppModel.h"
#include "model/DesktopLibrary.h"
#include "views/CardData.h"
#include "views/DailyTrio.h"
#include "views/FilterBarState.h"
#include "views/FirstAid.h"
#include "views/LibraryState.h"
#include "views/PracticeRound.h"
#include "views/Sticker.h"
#include "views/TipsState.h"
#include "views/VisualKeyboard.h"

#include <QMap>
#include <QSet>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>
#include <utility>

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
    EXPECT_EQ(tips.hotKeyHint(), u"⌃ ⌥ mezerník otevře knihovnu odkudkoli"_s);
    EXPECT_EQ(tips.spokenHotKeyHint(), u"Control Option mezerník otevře knihovnu odkudkoli"_s);
    expectFollows(tips, &TipsState::changed);
    expectPcKeys(tips.tips());
    EXPECT_EQ(tips.hotKeyHint(), u"Ctrl Alt mezerník otevře knihovnu odkudkoli"_s);
    EXPECT_EQ(tips.spokenHotKeyHint(), u"Control Alt mezerník otevře knihovnu odkudkoli"_s);
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
    EXPECT_FALSE(aid.startupOfMacShown());
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

namespace {

/// Every screen and panel while the library of the desktop is chosen, live.
class LibraryChoiceTest : public testing::Test
{
protected:
    LibraryChoiceTest() { desktop.kind.family = platform::DesktopFamily::kde; }

    template <typename State>
    static void expectFollowsOf(AppModel &model, State &state, void (State::*changed)())
    {
        const QSignalSpy changes(&state, changed);
        model.setLibraryChoice(LibraryChoice::desktop);
        EXPECT_FALSE(changes.isEmpty());
    }
    template <typename State>
    void expectFollows(State &state, void (State::*changed)())
    {
        expectFollowsOf(model(), state, changed);
    }

    AppModel &model()
    {
        if (!m_model)
            m_model = std::make_unique<AppModel>(desktop.desktop());
        return *m_model;
    }

    static QStringList ids(const QVariantList &cards)
    {
        QStringList ids;
        for (const QVariant &card : cards)
            ids.append(card.value<CardData>().id);
        return ids;
    }

    FakeDesktop desktop;

private:
    std::unique_ptr<AppModel> m_model;
};

} // namespace

TEST_F(LibraryChoiceTest, Cards)
{
    LibraryState library(model());
    expectFollows(library, &LibraryState::restarted);
    EXPECT_EQ(library.rows()->cardCount(), DesktopLibrary::of(desktop.kind.family).size());
}

TEST_F(LibraryChoiceTest, Tips)
{
    TipsState tips(model());
    expectFollows(tips, &TipsState::changed);
    EXPECT_EQ(tips.tips().first().value<CardData>().keys, (QStringList{u"⌃"_s, u"C"_s}));
}

TEST_F(LibraryChoiceTest, DailyTrio)
{
    class DailyTrio trio;
    trio.setModel(&model());
    expectFollows<ScreenState>(trio, &ScreenState::changed);
    EXPECT_EQ(trio.trio().first().keys, (QStringList{u"⌃"_s, u"C"_s}));
    EXPECT_EQ(trio.trio().size(), 3);
}

TEST_F(LibraryChoiceTest, StickerHasWhatTheDesktopHas)
{
    class Sticker sticker;
    sticker.setModel(&model());
    expectFollows<ScreenState>(sticker, &ScreenState::changed);
    EXPECT_EQ(
        ids(sticker.cards()).join(u' '),
        u"copy paste undo save emoji spotlight switch-app close-window force-quit lock new-folder "
        "trash shot-full shot-area shot-tools restore-tab home"_s);
}

TEST_F(LibraryChoiceTest, SituationsWithoutHelpAreLeftOut)
{
    using enum platform::DesktopFamily;
    for (const auto &[family, count] :
         {std::pair(gnome, 4), std::pair(kde, 5), std::pair(xfce, 5), std::pair(other, 2)}) {
        desktop.kind.family = family;
        AppModel model(desktop.desktop());
        class FirstAid aid;
        aid.setModel(&model);
        model.setLibraryChoice(LibraryChoice::mac);
        EXPECT_EQ(aid.situations().size(), 5);
        EXPECT_TRUE(aid.startupOfMacShown());
        expectFollowsOf<ScreenState>(model, aid, &ScreenState::changed);
        EXPECT_FALSE(aid.startupOfMacShown()) << "no advice about another computer";
        EXPECT_EQ(aid.situations().size(), count);
        for (const QVariant &situation : aid.situations())
            EXPECT_FALSE(situation.toMap().value(u"cards"_s).toList().isEmpty());
    }
}

TEST_F(LibraryChoiceTest, Keyboard)
{
    VisualKeyboard keyboard;
    keyboard.setModel(&model());
    expectFollows<ScreenState>(keyboard, &ScreenState::changed);
    keyboard.click(u"⌘"_s);
    EXPECT_EQ(keyboard.matches().first().id, u"emoji"_s);
}

TEST_F(LibraryChoiceTest, QuizBeginsANewRoundOfWhatCanBePressed)
{
    PracticeRound round([](int bound) { return bound - 1; });
    round.setModel(&model());
    round.check({u"X"_s});
    ASSERT_NE(round.result(), std::nullopt);
    expectFollows<ScreenState>(round, &ScreenState::changed);
    EXPECT_EQ(round.result(), std::nullopt);
    EXPECT_TRUE(round.captured().isEmpty());
    EXPECT_EQ(round.taskText(), u"Úkol 1 / 8"_s);
    EXPECT_EQ(round.keys(), (QStringList{u"⌃"_s, u"C"_s}));
    model().setLibraryChoice(LibraryChoice::mac);
    EXPECT_EQ(round.keys(), (QStringList{u"⌘"_s, u"C"_s}));
}

TEST_F(LibraryChoiceTest, QuizGoesOnWithTheKeysThatThePersonSetsMeanwhile)
{
    desktop.systemShortcuts->setAvailable();
    model().setLibraryChoice(LibraryChoice::desktop);
    const QList<Shortcut> before = model().library();
    const auto set =
        [this](const QMap<QString, QStringList> &keys, const QStringList &switchedOff = {}) {
            QList<platform::SystemShortcut> shortcuts;
            for (const auto &[action, tokens] : keys.asKeyValueRange())
                shortcuts.append({action, u"Jinak"_s, tokens, {}, u"Pokus"_s, {}});
            model().refreshSystemKeys();
            desktop.systemShortcuts->answer(shortcuts, switchedOff);
        };
    QList<DesktopShortcut> settable = DesktopLibrary::of(desktop.kind.family);
    settable.removeIf([](const DesktopShortcut &entry) {
        return entry.actions.isEmpty() || !KeyNames::canBePressed(entry.shortcut.keys);
    });
    ASSERT_GE(settable.size(), 2);
    const Shortcut &first = settable[0].shortcut;
    const Shortcut &second = settable[1].shortcut;
    const QStringList superF1{u"⌘"_s, u"F1"_s};
    const QStringList superF2{u"⌘"_s, u"F2"_s};

    PracticeRound round([](int bound) { return bound - 1; });
    round.setModel(&model());
    model().requestPractice(first);
    const auto tasks = [&round] {
        QStringList ids;
        for (const Shortcut &task : round.items())
            ids.append(task.id);
        return ids;
    };
    QStringList ids = tasks();

    // An unanswered task asks for the new keys.
    set({{settable[0].actions.first(), superF1}});
    EXPECT_EQ(tasks(), ids);
    EXPECT_EQ(round.keys(), superF1);
    round.check(superF1);
    EXPECT_EQ(round.result(), true);

    // An answered one stays as it was judged, and the score stays.
    set({{settable[0].actions.first(), superF2}});
    EXPECT_EQ(round.result(), true);
    EXPECT_EQ(round.captured(), superF1);
    EXPECT_EQ(round.keys(), superF1);
    EXPECT_EQ(model().practiceScore(), 1);
    round.next();
    EXPECT_EQ(round.taskText(), u"Úkol 2 / 8"_s);
    EXPECT_EQ(round.items().first().keys, superF2) << "when it is asked again";
    EXPECT_EQ(tasks(), ids);

    // What no press answers any more makes room; the others stay where they are.
    model().requestPractice(second);
    round.next();
    ids = tasks();
    set({{settable[1].actions.first(), {u"Print"_s}}});
    const QStringList now = tasks();
    EXPECT_EQ(now.sliced(1), ids.sliced(1));
    EXPECT_NE(now.first(), second.id);
    EXPECT_EQ(QSet<QString>(now.cbegin(), now.cend()).size(), 8);
    EXPECT_TRUE(KeyNames::canBePressed(round.items().first().keys));
    EXPECT_EQ(round.taskText(), u"Úkol 2 / 8"_s);

    // So does what is switched off.
    model().requestPractice(second);
    set({}, settable[1].actions);
    EXPECT_FALSE(tasks().contains(second.id));
    EXPECT_EQ(round.taskCount(), 8);

    // What was suggested with other keys is asked with those of now, drawn or not.
    for (const DesktopShortcut &entry : settable) {
        set({{entry.actions.first(), superF1}});
        model().requestPractice(entry.shortcut);
        EXPECT_EQ(round.current().id, entry.shortcut.id);
        EXPECT_EQ(round.keys(), superF1) << qPrintable(entry.shortcut.id);
    }

    // A shortcut of the person's own is not the library's to change.
    const Shortcut own{u"custom-1"_s, u"Moje"_s, {u"K"_s}, Shortcut::Category::text, {}, {}};
    model().requestPractice(own);
    set({});
    set({{settable[0].actions.first(), superF1}});
    EXPECT_EQ(round.current(), own);
    set({});
    EXPECT_EQ(model().library(), before);
    EXPECT_EQ(round.current(), own);
}

TEST_F(LibraryChoiceTest, EveryTaskThatIsEverAskedCanBeAnswered)
{
    for (const auto family :
         {platform::DesktopFamily::gnome, platform::DesktopFamily::kde,
          platform::DesktopFamily::xfce, platform::DesktopFamily::other}) {
        desktop.kind.family = family;
        AppModel desktopsModel(desktop.desktop());
        desktopsModel.setLibraryChoice(LibraryChoice::desktop);
        QSet<QString> asked;
        for (int first = 0; first < 400; ++first) {
            PracticeRound round([step = first](int bound) mutable { return step++ % bound; });
            round.setModel(&desktopsModel);
            for (const Shortcut &task : round.items()) {
                asked.insert(task.id);
                EXPECT_TRUE(KeyNames::canBePressed(task.keys)) << qPrintable(task.id);
            }
        }
        EXPECT_FALSE(asked.contains(u"shot-window"_s)) << "Print stays with the desktop";
        EXPECT_GT(asked.size(), 30);
    }
}

} // namespace hmatnik::test
