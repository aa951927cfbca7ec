#include "FakeDesktop.h"
#include "model/AppModel.h"
#include "model/ShortcutLibrary.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <iterator>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

QStringList idsOf(const auto &shortcuts)
{
    QStringList ids;
    for (const Shortcut &shortcut : shortcuts)
        ids.append(shortcut.id);
    return ids;
}

Shortcut custom(
    const QString &id, const QString &title, const QStringList &keys, const QStringList &apps = {})
{
    return {id, title, keys, Shortcut::Category::text, apps, u"Popis."_s};
}

class AppModelFilterTest : public testing::Test
{
protected:
    QStringList searchIds(const QString &text)
    {
        model.setSearch(text);
        return idsOf(model.filtered());
    }
    void use(const QString &title, int times)
    {
        for (int i = 0; i < times; ++i)
            model.recordMouseAction(title);
    }

    FakeDesktop fake;
    AppModel model{fake.desktop(), QLocale(u"cs_CZ"_s)};
};

} // namespace

TEST_F(AppModelFilterTest, UnfilteredIsThePoolInOrder)
{
    const QList<Shortcut> own{
        custom(u"custom-1"_s, u"Aaa"_s, {u"K"_s}), ShortcutLibrary::all().first()};
    model.setCustomShortcuts(own);
    EXPECT_EQ(idsOf(model.filtered()), idsOf(ShortcutLibrary::all() + own));
    const auto positions = model.filteredPositions();
    ASSERT_EQ(positions.size(), 60U);
    for (std::size_t i = 0; i < positions.size(); ++i)
        EXPECT_EQ(positions[i], int(i));
}

TEST_F(AppModelFilterTest, RecordsAndPositionsAgree)
{
    model.setSearch(u"okn"_s);
    const auto positions = model.filteredPositions();
    const FilteredShortcuts shortcuts = model.filtered();
    ASSERT_FALSE(shortcuts.isEmpty());
    ASSERT_EQ(std::size_t(shortcuts.size()), positions.size());
    for (std::size_t i = 0; i < positions.size(); ++i)
        EXPECT_EQ(shortcuts.at(int(i)), model.pool().at(positions[i]));
}

TEST_F(AppModelFilterTest, AnAnswerCanBeWalkedStepByStep)
{
    const FilteredShortcuts shortcuts = model.filtered();
    ASSERT_GT(shortcuts.size(), 2);
    auto position = shortcuts.begin();
    EXPECT_EQ(position->id, shortcuts.at(0).id);
    EXPECT_EQ((*position++).id, shortcuts.at(0).id) << "where it stood before the step";
    EXPECT_EQ(position->id, shortcuts.at(1).id);
    EXPECT_EQ((++position)->id, shortcuts.at(2).id);
    EXPECT_EQ(std::distance(shortcuts.begin(), shortcuts.end()), shortcuts.size());
}

TEST_F(AppModelFilterTest, AnAnswerStaysAsItWasWhenTheModelChanges)
{
    const Shortcut own = custom(u"custom-1"_s, u"Jedinečný"_s, {u"K"_s});
    model.setCustomShortcuts({own});
    model.setSearch(u"jedinečný"_s);
    const FilteredShortcuts before = model.filtered();
    model.setCustomShortcuts({});
    ASSERT_EQ(before.size(), 1);
    EXPECT_EQ(before.at(0), own);
    EXPECT_TRUE(model.filtered().isEmpty());
}

TEST_F(AppModelFilterTest, FavouritesComeInPoolOrder)
{
    model.setSelection(SidebarSelection::Kind::favorites);
    EXPECT_EQ(
        idsOf(model.filtered()),
        (QStringList{u"copy"_s, u"paste"_s, u"spotlight"_s, u"shot-area"_s}));
    model.toggleFavorite(model.pool().at(0));
    EXPECT_EQ(idsOf(model.filtered()), (QStringList{u"paste"_s, u"spotlight"_s, u"shot-area"_s}));
}

TEST_F(AppModelFilterTest, CategoryAcceptsItsOwn)
{
    const std::array counts{10, 9, 13, 12, 4, 10};
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const auto category = Shortcut::allCategories.at(i);
        model.setSelection(SidebarSelection::ofCategory(category));
        const FilteredShortcuts shortcuts = model.filtered();
        EXPECT_EQ(shortcuts.size(), counts.at(i));
        for (const Shortcut &shortcut : shortcuts)
            EXPECT_EQ(shortcut.category, category);
    }
}

TEST_F(AppModelFilterTest, TheOtherDestinationsAcceptEveryRecord)
{
    using Kind = SidebarSelection::Kind;
    for (const Kind kind :
         {Kind::all, Kind::keyboard, Kind::sticker, Kind::firstAid, Kind::daily, Kind::practice}) {
        model.setSelection(kind);
        EXPECT_EQ(model.filtered().size(), 58);
    }
}

TEST_F(AppModelFilterTest, AllModifiersAreRequiredTogether)
{
    model.setModifierFilters({ModifierFilter::command, ModifierFilter::shift});
    const QStringList ids = idsOf(model.filtered());
    EXPECT_TRUE(ids.contains(u"redo"_s));
    EXPECT_FALSE(ids.contains(u"copy"_s));
    for (const Shortcut &shortcut : model.filtered())
        EXPECT_TRUE(shortcut.keys.contains(u"⌘"_s) && shortcut.keys.contains(u"⇧"_s));
    model.setModifierFilters({ModifierFilter::fn});
    EXPECT_EQ(idsOf(model.filtered()), QStringList{u"desktop"_s});
    model.setModifierFilters({ModifierFilter::fn, ModifierFilter::command});
    EXPECT_TRUE(model.filtered().isEmpty());
    model.setModifierFilters({ModifierFilter::control, ModifierFilter::shift});
    EXPECT_EQ(idsOf(model.filtered()), QStringList{u"shot-clipboard"_s});
}

TEST_F(AppModelFilterTest, ModifiersAreComparedAsWholeTokens)
{
    model.setCustomShortcuts({
        custom(u"custom-1"_s, u"a"_s, {u"fn"_s, u"K"_s}),
        custom(u"custom-2"_s, u"b"_s, {u"cmd"_s, u"Fn"_s, u"K"_s}),
    });
    model.setModifierFilters({ModifierFilter::fn});
    EXPECT_EQ(idsOf(model.filtered()), (QStringList{u"desktop"_s, u"custom-2"_s}));
    model.setModifierFilters({ModifierFilter::fn, ModifierFilter::command});
    EXPECT_TRUE(model.filtered().isEmpty());
}

TEST_F(AppModelFilterTest, ToggleModifierNotifiesBothTimes)
{
    const QSignalSpy spy(&model, &AppModel::modifierFiltersChanged);
    model.toggleModifier(ModifierFilter::option);
    EXPECT_EQ(model.modifierFilters(), ModifierFilters{ModifierFilter::option});
    model.toggleModifier(ModifierFilter::fn);
    model.toggleModifier(ModifierFilter::option);
    EXPECT_EQ(model.modifierFilters(), ModifierFilters{ModifierFilter::fn});
    EXPECT_EQ(spy.count(), 3);
}

TEST_F(AppModelFilterTest, SearchIsTrimmed)
{
    EXPECT_EQ(searchIds(u" \t\n "_s).size(), 58);
    EXPECT_EQ(searchIds(u"\u00A0\u2003\u2029"_s).size(), 58);
    EXPECT_EQ(searchIds(u"  kopírovat\n"_s), QStringList{u"copy"_s});
    EXPECT_EQ(searchIds(u"Vrátit zpět"_s), QStringList{u"undo"_s});
    EXPECT_EQ(searchIds(u"zpět Vrátit"_s), QStringList());
    EXPECT_EQ(searchIds(u"Vrátit  zpět"_s), QStringList());
}

TEST_F(AppModelFilterTest, SearchIgnoresCaseAndHeedsDiacritics)
{
    EXPECT_EQ(searchIds(u"KOPÍROVAT"_s), QStringList{u"copy"_s});
    EXPECT_EQ(searchIds(u"kopi\u0301rovat"_s), QStringList{u"copy"_s});
    EXPECT_EQ(searchIds(u"kopirovat"_s), QStringList());
}

TEST_F(AppModelFilterTest, SearchLooksIntoTitleDetailAndKeys)
{
    EXPECT_EQ(searchIds(u"obsah schránky"_s), QStringList{u"paste"_s});
    EXPECT_EQ(searchIds(u"⌘C"_s), (QStringList{u"copy"_s, u"computer"_s}));
    EXPECT_EQ(searchIds(u"⌘c"_s), (QStringList{u"copy"_s, u"computer"_s}));
    EXPECT_EQ(searchIds(u"⌘ C"_s), QStringList());
    EXPECT_EQ(searchIds(u"⌥⌘esc"_s), QStringList{u"force-quit"_s});
    EXPECT_EQ(searchIds(u"−"_s), QStringList{u"zoom-out"_s});
}

TEST_F(AppModelFilterTest, ApplicationsAndCategoriesAreNotSearched)
{
    EXPECT_EQ(searchIds(u"Safari"_s), QStringList());
    EXPECT_EQ(searchIds(u"Prohlížeč"_s), QStringList{u"new-tab"_s}); // its detail says so
    model.setCustomShortcuts({custom(u"custom-1"_s, u"Okno v Safari"_s, {u"K"_s})});
    EXPECT_EQ(searchIds(u"Safari"_s), QStringList{u"custom-1"_s});
}

TEST_F(AppModelFilterTest, AllThreeConditionsHoldTogether)
{
    model.setSelection(SidebarSelection::ofCategory(Shortcut::Category::okna));
    model.setModifierFilters({ModifierFilter::option});
    EXPECT_EQ(searchIds(u"okna"_s), QStringList{u"minimize-all"_s});
    model.setSelection(SidebarSelection::Kind::favorites);
    EXPECT_EQ(searchIds(u"okna"_s), QStringList());
}

TEST_F(AppModelFilterTest, EveryReadIsComputedAfresh)
{
    EXPECT_EQ(searchIds(u"jedinečný"_s), QStringList());
    model.setCustomShortcuts({custom(u"custom-1"_s, u"Jedinečný"_s, {u"K"_s})});
    EXPECT_EQ(idsOf(model.filtered()), QStringList{u"custom-1"_s});
    model.setCustomShortcuts({});
    EXPECT_EQ(idsOf(model.filtered()), QStringList());
}

TEST(AppModelLocale, SearchFollowsTheLocale)
{
    FakeDesktop fake;
    AppModel turkish(fake.desktop(), QLocale(u"tr_TR"_s));
    turkish.setCustomShortcuts({custom(u"custom-1"_s, u"KIRMIZI"_s, {u"K"_s})});
    turkish.setSearch(u"kırmızı"_s);
    EXPECT_EQ(idsOf(turkish.filtered()), QStringList{u"custom-1"_s});
    turkish.setSearch(u"kirmizi"_s);
    EXPECT_TRUE(turkish.filtered().isEmpty());
}

TEST_F(AppModelFilterTest, ContextualOfAnUnknownApplicationIsTheWholePool)
{
    fake.workspace->activate(u"Neznámá"_s, 5);
    EXPECT_EQ(
        idsOf(model.contextual()), (QStringList{u"copy"_s, u"paste"_s, u"undo"_s, u"redo"_s}));
    model.setCustomShortcuts({custom(u"custom-1"_s, u"Jedinečný"_s, {u"K"_s})});
    use(u"Jedinečný"_s, 1);
    EXPECT_EQ(
        idsOf(model.contextual()), (QStringList{u"custom-1"_s, u"copy"_s, u"paste"_s, u"undo"_s}));
}

TEST_F(AppModelFilterTest, ContextualRanksByUse)
{
    fake.workspace->activate(u"Finder"_s, 5);
    EXPECT_EQ(
        idsOf(model.contextual()),
        (QStringList{u"new-folder"_s, u"go-folder"_s, u"trash"_s, u"quick-look"_s}));
    use(u"Informace o souboru"_s, 3);
    EXPECT_EQ(model.usageCounts().value(u"info"_s), 3);
    EXPECT_EQ(
        idsOf(model.contextual()),
        (QStringList{u"info"_s, u"new-folder"_s, u"go-folder"_s, u"trash"_s}));
    use(u"Duplikovat"_s, 3);
    use(u"Rychlý náhled"_s, 4);
    EXPECT_EQ(
        idsOf(model.contextual()),
        (QStringList{u"quick-look"_s, u"info"_s, u"duplicate"_s, u"new-folder"_s}));
}

TEST_F(AppModelFilterTest, ContextualMatchesWholeNamesExactly)
{
    model.setCustomShortcuts({
        custom(u"custom-1"_s, u"a"_s, {u"K"_s}, {u"Jiná"_s, u"Moje"_s}),
        custom(u"custom-2"_s, u"b"_s, {u"K"_s}, {u"moje"_s}),
        custom(u"custom-3"_s, u"c"_s, {u"K"_s}, {u"Moje aplikace"_s}),
        custom(u"custom-4"_s, u"d"_s, {u"K"_s}, {u"Moje"_s}),
    });
    fake.workspace->activate(u"Moje"_s, 5);
    EXPECT_EQ(idsOf(model.contextual()), (QStringList{u"custom-1"_s, u"custom-4"_s}));
}

TEST_F(AppModelFilterTest, DailyShortcutWalksThroughThePool)
{
    const QTimeZone prague("Europe/Prague");
    const auto on = [&](int month, int day) {
        fake.clock->setNow(QDate(2025, month, day), QTime(12, 0), prague);
        return model.dailyShortcut().id;
    };
    EXPECT_EQ(on(1, 1), u"copy"_s);
    EXPECT_EQ(on(1, 2), u"paste"_s);
    EXPECT_EQ(on(2, 27), u"logout"_s); // day 58
    EXPECT_EQ(on(2, 28), u"copy"_s);   // day 59
    EXPECT_EQ(on(12, 31), ShortcutLibrary::all().at(364 % 58).id);
    model.setCustomShortcuts({custom(u"custom-1"_s, u"a"_s, {u"K"_s})});
    EXPECT_EQ(on(2, 28), u"custom-1"_s);
    EXPECT_EQ(on(3, 1), u"copy"_s);
}

TEST_F(AppModelFilterTest, DailyShortcutChangesAtLocalMidnight)
{
    const QTimeZone tokyo("Asia/Tokyo");
    fake.clock->setNow(QDate(2025, 1, 1), QTime(23, 59, 59, 999), tokyo);
    EXPECT_EQ(model.dailyShortcut().id, u"copy"_s);
    fake.clock->setNow(QDate(2025, 1, 2), QTime(0, 0), tokyo);
    EXPECT_EQ(model.dailyShortcut().id, u"paste"_s);
    // The same moment is still New Year's Day further west.
    fake.clock->setTimeZone(QTimeZone("Europe/Prague"));
    EXPECT_EQ(model.dailyShortcut().id, u"copy"_s);
}

TEST_F(AppModelFilterTest, DailyShortcutWithoutADate)
{
    fake.clock->setNow(QDateTime());
    EXPECT_EQ(model.dailyShortcut().id, u"copy"_s);
}

TEST_F(AppModelFilterTest, DailyShortcutInALeapYear)
{
    fake.clock->setNow(QDate(2028, 12, 31), QTime(12, 0), QTimeZone("Europe/Prague"));
    EXPECT_EQ(model.dailyShortcut().id, ShortcutLibrary::all().at(365 % 58).id);
}

} // namespace hmatnik::test
