#include "FakeDesktop.h"
#include "model/AppModel.h"
#include "model/DesktopLibrary.h"
#include "model/ShortcutLibrary.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

const QSet<QString> defaultFavorites{u"copy"_s, u"paste"_s, u"spotlight"_s, u"shot-area"_s};

Shortcut custom(const QString &id)
{
    return {id,           u"Vlastní "_s + id, {u"⌘"_s, u"K"_s}, Shortcut::Category::text,
            {u"Pages"_s}, u"Popis."_s};
}

class AppModelStateTest : public testing::Test
{
protected:
    AppModel &model()
    {
        if (!m_model)
            m_model = std::make_unique<AppModel>(fake.desktop(), QLocale(u"cs_CZ"_s));
        return *m_model;
    }
    void preset(const QString &key, const QVariant &value) { fake.preferences->preset(key, value); }
    void restart() { m_model.reset(); }

    FakeDesktop fake;

private:
    std::unique_ptr<AppModel> m_model;
};

} // namespace

TEST_F(AppModelStateTest, FirstLaunch)
{
    EXPECT_EQ(model().search(), QString());
    EXPECT_EQ(model().selection(), SidebarSelection());
    EXPECT_EQ(model().modifierFilters(), ModifierFilters());
    EXPECT_EQ(model().activeApp(), u"Mac"_s);
    EXPECT_EQ(model().activeAppPID(), std::nullopt);
    EXPECT_EQ(model().customShortcuts(), QList<Shortcut>());
    EXPECT_TRUE(model().smartSuggestionsEnabled());
    EXPECT_FALSE(model().learningModeEnabled());
    EXPECT_EQ(model().latestSuggestion(), std::nullopt);
    EXPECT_EQ(model().latestSuggestionReason(), QString());
    EXPECT_EQ(model().importMessage(), std::nullopt);
    EXPECT_FALSE(model().isImporting());
    EXPECT_EQ(model().practiceIndex(), 0);
    EXPECT_EQ(model().practiceScore(), 0);
    EXPECT_FALSE(model().practiceAnswered());
    EXPECT_FALSE(model().launchAtLogin());
    EXPECT_EQ(model().favorites(), defaultFavorites);
    EXPECT_TRUE(model().usageCounts().isEmpty());
    // Starting up reads; it writes nothing.
    EXPECT_TRUE(fake.preferences->writes().isEmpty());
}

TEST_F(AppModelStateTest, TakesTheFrontmostApplicationAsItIs)
{
    fake.workspace->setFrontmost(platform::RunningApplication{u"Finder"_s, 12});
    EXPECT_EQ(model().activeApp(), u"Finder"_s);
    EXPECT_EQ(model().activeAppPID(), 12);
}

TEST_F(AppModelStateTest, OwnProgramInFrontCountsAtStartUp)
{
    fake.workspace->setFrontmost(platform::RunningApplication{u"Hmatník"_s, FakeWorkspace::ownPid});
    EXPECT_EQ(model().activeApp(), u"Hmatník"_s);
    EXPECT_EQ(model().activeAppPID(), FakeWorkspace::ownPid);
}

TEST_F(AppModelStateTest, FrontmostApplicationWithoutAName)
{
    fake.workspace->setFrontmost(platform::RunningApplication{std::nullopt, 12});
    EXPECT_EQ(model().activeApp(), u"Mac"_s);
    EXPECT_EQ(model().activeAppPID(), 12);
}

TEST_F(AppModelStateTest, LoginItemIsReadAtStartUp)
{
    fake.loginItem->setState(true);
    EXPECT_TRUE(model().launchAtLogin());
}

TEST_F(AppModelStateTest, StoredStateIsLoaded)
{
    const QList<Shortcut> shortcuts{custom(u"custom-1"_s), custom(u"custom-2"_s)};
    preset(u"favorites"_s, QVariantList{u"a"_s, u"b"_s, u"a"_s});
    preset(u"smartSuggestions"_s, false);
    preset(u"learningMode"_s, true);
    preset(u"usageCounts"_s, QVariantMap{{u"copy"_s, qint64(3)}, {u"x"_s, qint64(-1)}});
    preset(u"customShortcuts"_s, Shortcut::toJson(shortcuts));
    EXPECT_EQ(model().favorites(), (QSet<QString>{u"a"_s, u"b"_s}));
    EXPECT_FALSE(model().smartSuggestionsEnabled());
    EXPECT_TRUE(model().learningModeEnabled());
    EXPECT_EQ(model().usageCounts(), (QHash<QString, qint64>{{u"copy"_s, 3}, {u"x"_s, -1}}));
    EXPECT_EQ(model().customShortcuts(), shortcuts);
    EXPECT_EQ(model().pool().size(), 60);
}

TEST_F(AppModelStateTest, EmptyStoredFavouritesStayEmpty)
{
    preset(u"favorites"_s, QVariantList());
    EXPECT_TRUE(model().favorites().isEmpty());
}

TEST_F(AppModelStateTest, FavouritesOfAnotherTypeFallBackToTheDefaults)
{
    for (const QVariant &odd :
         {QVariant(u"copy"_s), QVariant(QVariantList{u"a"_s, qint64(1)}), QVariant(QVariantMap()),
          QVariant(QVariantList{QVariant(QVariantList{u"a"_s})}), QVariant(QByteArray("a")),
          QVariant(true), QVariant(qint64(1)), QVariant(QVariantList{QByteArray("a")})}) {
        restart();
        preset(u"favorites"_s, odd);
        EXPECT_EQ(model().favorites(), defaultFavorites) << odd.typeName();
    }
}

TEST_F(AppModelStateTest, SettingsThatAreNoBooleansFallBackToTheDefaults)
{
    for (const QVariant &odd :
         {QVariant(u"false"_s), QVariant(u"true"_s), QVariant(qint64(0)), QVariant(qint64(1)),
          QVariant(0.0), QVariant(QByteArray()), QVariant(QVariantList()), QVariant(QVariantMap()),
          QVariant()}) {
        restart();
        preset(u"smartSuggestions"_s, odd);
        preset(u"learningMode"_s, odd);
        EXPECT_TRUE(model().smartSuggestionsEnabled()) << odd.typeName();
        EXPECT_FALSE(model().learningModeEnabled()) << odd.typeName();
    }
}

TEST_F(AppModelStateTest, UsageCountsAreDiscardedAsAWhole)
{
    for (const QVariant &odd :
         {QVariant(u"3"_s), QVariant(3.0), QVariant(true), QVariant(QVariantList()),
          QVariant(QVariantMap())}) {
        restart();
        preset(u"usageCounts"_s, QVariantMap{{u"copy"_s, qint64(3)}, {u"paste"_s, odd}});
        EXPECT_TRUE(model().usageCounts().isEmpty()) << odd.typeName();
    }
    restart();
    preset(u"usageCounts"_s, QVariantList{qint64(3)});
    EXPECT_TRUE(model().usageCounts().isEmpty());
}

TEST_F(AppModelStateTest, CustomShortcutsThatCannotBeReadLoadAsNoneAndStayStored)
{
    QByteArray oneBad = Shortcut::toJson({custom(u"custom-1"_s), custom(u"custom-2"_s)});
    oneBad.replace(oneBad.lastIndexOf("Popis."), 8, "Popis.\",\"x\":\"");
    const QByteArray valid = Shortcut::toJson({custom(u"custom-1"_s)});
    // A good record on either side of one that lacks a member.
    QByteArray malformed =
        Shortcut::toJson({custom(u"custom-1"_s), custom(u"custom-2"_s), custom(u"custom-3"_s)});
    malformed.replace(malformed.indexOf("\"title\"", malformed.indexOf("custom-2")), 7, "\"name\"");
    ASSERT_EQ(QJsonDocument::fromJson(malformed).array().size(), 3);
    for (const QVariant &odd :
         {QVariant(oneBad.chopped(2)), QVariant(malformed),
          QVariant(QByteArray(valid).replace("\"detail\"", "\"note\"")),
          QVariant(QByteArray(valid).replace("\"Text\"", "\"text\"")), QVariant(QByteArray()),
          QVariant(QByteArray("\0\1", 2)), QVariant(QString::fromUtf8(valid)), QVariant(true),
          QVariant(QVariantList{valid})}) {
        restart();
        preset(u"customShortcuts"_s, odd);
        EXPECT_TRUE(model().customShortcuts().isEmpty()) << odd.typeName();
        EXPECT_EQ(model().pool().size(), 58);
        EXPECT_EQ(fake.preferences->value(u"customShortcuts"_s), odd);
    }
    EXPECT_TRUE(fake.preferences->writes().isEmpty());
}

TEST_F(AppModelStateTest, OneMalformedRecordSpoilsTheGoodOnesBesideIt)
{
    const QByteArray good = Shortcut::toJson({custom(u"custom-1"_s)});
    QByteArray bad = Shortcut::toJson({custom(u"custom-2"_s)});
    bad.replace("\"detail\"", "\"note\"");
    preset(u"customShortcuts"_s, good.chopped(1) + ',' + bad.sliced(1));
    EXPECT_TRUE(model().customShortcuts().isEmpty());
    restart();
    preset(u"customShortcuts"_s, good.chopped(1) + ',' + good.sliced(1));
    EXPECT_EQ(model().customShortcuts().size(), 2) << "or the two were not joined as meant";
}

TEST_F(AppModelStateTest, WhatAnotherProcessStoredIsShown)
{
    const QSignalSpy favorites(&model(), &AppModel::favoritesChanged);
    const QSignalSpy shortcuts(&model(), &AppModel::customShortcutsChanged);
    const QSignalSpy suggestions(&model(), &AppModel::smartSuggestionsEnabledChanged);
    model().refresh();
    EXPECT_EQ(favorites.count(), 0);
    fake.preferences->storeElsewhere(u"favorites"_s, QVariantList{u"undo"_s});
    fake.preferences->storeElsewhere(
        u"customShortcuts"_s, Shortcut::toJson({custom(u"custom-1"_s)}));
    fake.preferences->storeElsewhere(u"smartSuggestions"_s, false);
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 1);
    model().refresh();
    EXPECT_EQ(model().favorites(), QSet{u"undo"_s});
    EXPECT_EQ(model().customShortcuts(), QList{custom(u"custom-1"_s)});
    EXPECT_EQ(model().pool().size(), 59);
    EXPECT_FALSE(model().smartSuggestionsEnabled());
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 0) << "nobody is observed any more";
    EXPECT_EQ(favorites.count(), 1);
    EXPECT_EQ(shortcuts.count(), 1);
    EXPECT_EQ(suggestions.count(), 1);
    EXPECT_TRUE(fake.preferences->writes().isEmpty()) << "it is stored already";
}

TEST_F(AppModelStateTest, ValuesThatCouldNotBeReadAreMergedWithTheChanged)
{
    model();
    const auto &merge = fake.preferences->merge();
    ASSERT_TRUE(merge);
    EXPECT_EQ(
        merge(u"favorites"_s, QVariantList{u"a"_s, u"b"_s}, QVariantList{u"b"_s, u"c"_s}),
        QVariant(QVariantList{u"a"_s, u"b"_s, u"c"_s}));
    const qint64 most = std::numeric_limits<qint64>::max();
    EXPECT_EQ(
        merge(
            u"usageCounts"_s, QVariantMap{{u"a"_s, qint64(5)}, {u"b"_s, most}},
            QVariantMap{{u"a"_s, qint64(2)}, {u"b"_s, qint64(1)}, {u"c"_s, qint64(1)}}),
        QVariant(QVariantMap{{u"a"_s, qint64(7)}, {u"b"_s, most}, {u"c"_s, qint64(1)}}));
    const Shortcut one = custom(u"custom-1"_s);
    const Shortcut two = custom(u"custom-2"_s);
    const Shortcut three = custom(u"custom-3"_s);
    EXPECT_EQ(
        merge(u"customShortcuts"_s, Shortcut::toJson({one, two}), Shortcut::toJson({two, three})),
        QVariant(Shortcut::toJson({one, two, three})));
    // What has no sum, and stored values of another type, give way.
    EXPECT_EQ(merge(u"learningMode"_s, false, true), QVariant(true));
    EXPECT_EQ(
        merge(u"favorites"_s, u"text"_s, QVariantList{u"a"_s}), QVariant(QVariantList{u"a"_s}));
    EXPECT_EQ(
        merge(u"customShortcuts"_s, "no list"_ba, Shortcut::toJson({one})),
        QVariant(Shortcut::toJson({one})));
    EXPECT_EQ(merge(u"usageCounts"_s, true, QVariantMap{}), QVariant(QVariantMap{}));
}

TEST_F(AppModelStateTest, FieldsNotifyOnlyWhenTheirValueChanges)
{
    const auto count = [&](void (AppModel::*signal)(), const std::function<void()> &change) {
        const QSignalSpy spy(&model(), signal);
        change();
        const auto changes = spy.count();
        change();
        EXPECT_EQ(spy.count(), changes) << "notified although nothing changed";
        return changes;
    };
    EXPECT_EQ(count(&AppModel::searchChanged, [&] { model().setSearch(u"a"_s); }), 1);
    EXPECT_EQ(
        count(
            &AppModel::selectionChanged,
            [&] { model().setSelection(SidebarSelection::Kind::daily); }),
        1);
    EXPECT_EQ(
        count(
            &AppModel::modifierFiltersChanged,
            [&] { model().setModifierFilters({ModifierFilter::fn}); }),
        1);
    EXPECT_EQ(
        count(
            &AppModel::customShortcutsChanged,
            [&] { model().setCustomShortcuts({custom(u"c"_s)}); }),
        1);
    EXPECT_EQ(count(&AppModel::practiceIndexChanged, [&] { model().setPracticeIndex(3); }), 1);
    EXPECT_EQ(count(&AppModel::practiceScoreChanged, [&] { model().setPracticeScore(2); }), 1);
    EXPECT_EQ(
        count(&AppModel::practiceAnsweredChanged, [&] { model().setPracticeAnswered(true); }), 1);
    EXPECT_EQ(
        count(
            &AppModel::smartSuggestionsEnabledChanged, [&] { model().setSmartSuggestions(false); }),
        1);
    EXPECT_EQ(
        count(&AppModel::learningModeEnabledChanged, [&] { model().setLearningMode(true); }), 1);
    EXPECT_EQ(
        count(
            &AppModel::launchAtLoginChanged,
            [&] { EXPECT_EQ(model().setLaunchAtLogin(true), std::nullopt); }),
        1);
    EXPECT_EQ(
        count(&AppModel::activeAppChanged, [&] { fake.workspace->activate(u"Pages"_s, 9); }), 1);
    EXPECT_EQ(
        count(&AppModel::activeAppPIDChanged, [&] { fake.workspace->activate(u"Pages"_s, 10); }),
        1);
    EXPECT_EQ(model().search(), u"a"_s);
    EXPECT_EQ(model().selection(), SidebarSelection(SidebarSelection::Kind::daily));
    EXPECT_EQ(model().modifierFilters(), ModifierFilters{ModifierFilter::fn});
    EXPECT_EQ(model().practiceIndex(), 3);
    EXPECT_EQ(model().practiceScore(), 2);
    EXPECT_TRUE(model().practiceAnswered());
}

TEST_F(AppModelStateTest, SelectionOfAnotherCategoryIsAChange)
{
    model().setSelection(SidebarSelection::ofCategory(Shortcut::Category::text));
    const QSignalSpy spy(&model(), &AppModel::selectionChanged);
    model().setSelection(SidebarSelection::ofCategory(Shortcut::Category::text));
    EXPECT_EQ(spy.count(), 0);
    model().setSelection(SidebarSelection::ofCategory(Shortcut::Category::okna));
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(AppModelStateTest, CustomShortcutsThatDifferInOneFieldAreAChange)
{
    Shortcut shortcut = custom(u"custom-1"_s);
    model().setCustomShortcuts({shortcut});
    const QSignalSpy spy(&model(), &AppModel::customShortcutsChanged);
    shortcut.detail += u'!';
    model().setCustomShortcuts({shortcut});
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(model().pool().at(58), shortcut);
}

TEST_F(AppModelStateTest, SettingsAreStoredWhenSet)
{
    model().setSmartSuggestions(true);
    model().setLearningMode(false);
    EXPECT_EQ(
        fake.preferences->writes(),
        (QList<FakePreferences::Write>{{u"smartSuggestions"_s, true}, {u"learningMode"_s, false}}));
    model().setSmartSuggestions(false);
    model().setLearningMode(true);
    restart();
    EXPECT_FALSE(model().smartSuggestionsEnabled());
    EXPECT_TRUE(model().learningModeEnabled());
}

TEST_F(AppModelStateTest, CustomShortcutsAreStoredOnlyWhenSaved)
{
    const QList<Shortcut> shortcuts{custom(u"custom-1"_s), custom(u"custom-2"_s)};
    model().setCustomShortcuts(shortcuts);
    EXPECT_TRUE(fake.preferences->writes().isEmpty());
    model().saveCustomShortcuts();
    ASSERT_EQ(fake.preferences->writtenKeys(), QStringList{u"customShortcuts"_s});
    const QVariant stored = fake.preferences->writes().first().second;
    EXPECT_EQ(stored.typeId(), QMetaType::QByteArray);
    EXPECT_EQ(Shortcut::fromJson(stored.toByteArray()), shortcuts);
    restart();
    EXPECT_EQ(model().customShortcuts(), shortcuts);
}

TEST_F(AppModelStateTest, AStoreThatCannotBeWrittenDoesNotStopTheModel)
{
    fake.preferences->setFailing(true);
    model().setLearningMode(true);
    model().toggleFavorite(model().pool().at(2));
    model().setCustomShortcuts({custom(u"custom-1"_s)});
    model().saveCustomShortcuts();
    EXPECT_TRUE(model().learningModeEnabled());
    EXPECT_TRUE(model().favorites().contains(u"undo"_s));
    EXPECT_EQ(model().customShortcuts().size(), 1);
}

TEST_F(AppModelStateTest, LaunchAtLoginFollowsTheDesktop)
{
    EXPECT_EQ(model().setLaunchAtLogin(true), std::nullopt);
    EXPECT_TRUE(model().launchAtLogin());
    EXPECT_EQ(model().setLaunchAtLogin(false), std::nullopt);
    EXPECT_FALSE(model().launchAtLogin());
    EXPECT_EQ(fake.loginItem->requests(), (QList<bool>{true, false}));
    EXPECT_TRUE(fake.preferences->writes().isEmpty());
}

TEST_F(AppModelStateTest, LaunchAtLoginThatNeedsApprovalStaysOff)
{
    fake.loginItem->setNeedsApproval(true);
    EXPECT_EQ(model().setLaunchAtLogin(true), std::nullopt);
    EXPECT_FALSE(model().launchAtLogin());
}

TEST_F(AppModelStateTest, LaunchAtLoginHandsTheErrorOnAndKeepsItsValue)
{
    fake.loginItem->setState(true);
    EXPECT_TRUE(model().launchAtLogin());
    const QSignalSpy spy(&model(), &AppModel::launchAtLoginChanged);
    fake.loginItem->setError(u"Přístup odepřen"_s);
    fake.loginItem->setState(false);
    EXPECT_EQ(model().setLaunchAtLogin(false), u"Přístup odepřen"_s);
    EXPECT_TRUE(model().launchAtLogin());
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(AppModelStateTest, LaunchAtLoginThatWasChangedElsewhereIsNoticedWhenAsked)
{
    const QSignalSpy spy(&model(), &AppModel::launchAtLoginChanged);
    fake.loginItem->setState(true);
    EXPECT_FALSE(model().launchAtLogin());
    model().refreshLaunchAtLogin();
    EXPECT_TRUE(model().launchAtLogin());
    model().refreshLaunchAtLogin();
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(AppModelStateTest, ActivationsAreFollowed)
{
    model();
    fake.workspace->activate(u"Finder"_s, 12);
    EXPECT_EQ(model().activeApp(), u"Finder"_s);
    EXPECT_EQ(model().activeAppPID(), 12);
}

TEST_F(AppModelStateTest, NameIsSetBeforeTheProcess)
{
    QStringList order;
    QObject::connect(&model(), &AppModel::activeAppChanged, &model(), [&] {
        order.append(u"name"_s);
        EXPECT_EQ(model().activeAppPID(), std::nullopt);
    });
    QObject::connect(&model(), &AppModel::activeAppPIDChanged, &model(), [&] {
        order.append(u"pid"_s);
        EXPECT_EQ(model().activeApp(), u"Finder"_s);
    });
    fake.workspace->activate(u"Finder"_s, 12);
    EXPECT_EQ(order, (QStringList{u"name"_s, u"pid"_s}));
}

TEST_F(AppModelStateTest, ActivationsThatChangeNothing)
{
    fake.workspace->setFrontmost(platform::RunningApplication{u"Finder"_s, 12});
    model();
    const QSignalSpy names(&model(), &AppModel::activeAppChanged);
    const QSignalSpy pids(&model(), &AppModel::activeAppPIDChanged);
    fake.workspace->activate(std::nullopt);
    fake.workspace->activate(u"Hmatník"_s, FakeWorkspace::ownPid);
    fake.workspace->activate(platform::RunningApplication{std::nullopt, 13});
    fake.workspace->activate(u"Finder"_s, 12);
    EXPECT_EQ(model().activeApp(), u"Finder"_s);
    EXPECT_EQ(model().activeAppPID(), 12);
    EXPECT_EQ(names.count() + pids.count(), 0);
    // Another process of the same name.
    fake.workspace->activate(u"Finder"_s, 14);
    EXPECT_EQ(names.count(), 0);
    EXPECT_EQ(pids.count(), 1);
}

TEST_F(AppModelStateTest, EndsItsRegistrationsWithItself)
{
    model();
    EXPECT_EQ(fake.workspace->subscriberCount(), 1);
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 1);
    restart();
    EXPECT_EQ(fake.workspace->subscriberCount(), 0);
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 0);
    fake.workspace->activate(u"Finder"_s, 12);
    fake.mouseMonitor->press({1, 1});
}

TEST_F(AppModelStateTest, ObserverRunsWhileSuggestionsAreOn)
{
    preset(u"smartSuggestions"_s, false);
    model();
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 0);
    model().setSmartSuggestions(true);
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 1);
    model().setSmartSuggestions(true);
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 1);
    model().setSmartSuggestions(false);
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 0);
}

TEST_F(AppModelStateTest, ObserverStartsWhenThePermissionComes)
{
    fake.accessibility->setTrusted(false);
    model();
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 0);
    EXPECT_EQ(fake.accessibility->trustRequests(), 0);
    fake.accessibility->setTrusted(true);
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 1);
    fake.accessibility->setTrusted(false);
    fake.accessibility->setTrusted(true);
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 1);
}

TEST_F(AppModelStateTest, APermissionThatComesStartsNoObserverThatIsSwitchedOff)
{
    preset(u"smartSuggestions"_s, false);
    fake.accessibility->setTrusted(false);
    model();
    fake.accessibility->setTrusted(true);
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 0);
}

TEST_F(AppModelStateTest, NamesOfKeysAreStoredWhenChosen)
{
    EXPECT_EQ(model().keyStyle(), KeyStyle::mac);
    const QSignalSpy changes(&model(), &AppModel::keyStyleChanged);
    model().setKeyStyle(KeyStyle::pc);
    model().setKeyStyle(KeyStyle::pc);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(fake.preferences->value(u"keyNames"_s), u"pc"_s);
    restart();
    EXPECT_EQ(model().keyStyle(), KeyStyle::pc);
    model().setKeyStyle(KeyStyle::mac);
    EXPECT_EQ(fake.preferences->value(u"keyNames"_s), u"mac"_s);
}

TEST_F(AppModelStateTest, UnknownNamesOfKeysFallBackToTheDefault)
{
    const QList<QVariant> values{u"PC"_s, u"linux"_s, QString(), true, 1LL, QVariantList{u"pc"_s}};
    for (const QVariant &value : values) {
        preset(u"keyNames"_s, value);
        restart();
        EXPECT_EQ(model().keyStyle(), KeyStyle::mac);
        EXPECT_EQ(fake.preferences->value(u"keyNames"_s), value) << "what is stored stays";
    }
}

TEST_F(AppModelStateTest, OnAMacKeysHaveItsNames)
{
    fake.kind.hasMacKeyboard = true;
    preset(u"keyNames"_s, u"pc"_s);
    EXPECT_EQ(model().keyStyle(), KeyStyle::mac);
    const QSignalSpy changes(&model(), &AppModel::keyStyleChanged);
    model().setKeyStyle(KeyStyle::pc);
    EXPECT_EQ(model().keyStyle(), KeyStyle::mac);
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_TRUE(fake.preferences->writes().isEmpty());
    model().setSearch(u"super"_s);
    EXPECT_TRUE(model().filtered().isEmpty());
}

TEST_F(AppModelStateTest, LibraryIsStoredWhenChosen)
{
    fake.kind.family = platform::DesktopFamily::xfce;
    EXPECT_EQ(model().libraryChoice(), LibraryChoice::mac);
    EXPECT_EQ(model().library(), ShortcutLibrary::all());
    model().setCustomShortcuts({custom(u"vlastni"_s)});
    model().setPracticeIndex(3);
    model().setPracticeScore(2);
    const QSignalSpy changes(&model(), &AppModel::libraryChanged);
    model().setLibraryChoice(LibraryChoice::desktop);
    model().setLibraryChoice(LibraryChoice::desktop);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(fake.preferences->value(u"library"_s), u"desktop"_s);
    EXPECT_EQ(model().practiceIndex(), 0) << "practice begins anew";
    EXPECT_EQ(model().practiceScore(), 0);
    EXPECT_EQ(model().library().size(), DesktopLibrary::of(fake.kind.family).size());
    EXPECT_EQ(model().library().first().keys, (QStringList{u"⌃"_s, u"C"_s}));
    EXPECT_EQ(model().pool().records(), model().library() + model().customShortcuts());
    EXPECT_EQ(ShortcutLibrary::all().size(), 58) << "that of the Mac stays as it is";

    restart();
    EXPECT_EQ(model().libraryChoice(), LibraryChoice::desktop);
    EXPECT_EQ(model().library().first().keys, (QStringList{u"⌃"_s, u"C"_s}));
    model().setLibraryChoice(LibraryChoice::mac);
    EXPECT_EQ(model().pool().records(), ShortcutLibrary::all() + model().customShortcuts());
}

TEST_F(AppModelStateTest, UnknownLibrariesFallBackToTheDefault)
{
    const QList<QVariant> values{u"Desktop"_s, u"linux"_s, QString(), true, 1LL};
    for (const QVariant &value : values) {
        preset(u"library"_s, value);
        restart();
        EXPECT_EQ(model().libraryChoice(), LibraryChoice::mac);
        EXPECT_EQ(fake.preferences->value(u"library"_s), value) << "what is stored stays";
    }
}

TEST_F(AppModelStateTest, OnAMacTheLibraryIsItsOwn)
{
    fake.kind.hasMacKeyboard = true;
    preset(u"library"_s, u"desktop"_s);
    EXPECT_EQ(model().libraryChoice(), LibraryChoice::mac);
    model().setLibraryChoice(LibraryChoice::desktop);
    EXPECT_EQ(model().library(), ShortcutLibrary::all());
    EXPECT_TRUE(fake.preferences->writes().isEmpty());
}

TEST_F(AppModelStateTest, FavouritesAndCountsGoOnWithAnotherLibrary)
{
    fake.kind.family = platform::DesktopFamily::gnome;
    preset(u"usageCounts"_s, QVariantMap{{u"lock"_s, 7LL}});
    model().setLibraryChoice(LibraryChoice::desktop);
    model().setSelection(SidebarSelection::Kind::favorites);
    QStringList ids;
    for (const Shortcut &shortcut : model().filtered())
        ids.append(shortcut.id);
    EXPECT_EQ(ids, (QStringList{u"copy"_s, u"paste"_s, u"spotlight"_s, u"shot-area"_s}));
    EXPECT_EQ(model().contextual().first().id, u"lock"_s);
    EXPECT_EQ(model().dailyShortcut().id, u"copy"_s);
    model().setModifierFilters({ModifierFilter::fn});
    EXPECT_TRUE(model().filtered().isEmpty());
}

TEST_F(AppModelStateTest, TheDesktopsLibraryShowsTheKeysThatThePersonHasSet)
{
    fake.kind.family = platform::DesktopFamily::gnome;
    fake.systemShortcuts->setAvailable();
    model().refreshSystemKeys();
    EXPECT_EQ(fake.systemShortcuts->reads(), 0) << "nothing is read for the Mac's library";
    model().setLibraryChoice(LibraryChoice::desktop);
    EXPECT_EQ(fake.systemShortcuts->reads(), 1);
    model().refreshSystemKeys();
    EXPECT_EQ(fake.systemShortcuts->reads(), 1) << "it is being read";
    const QList<Shortcut> before = model().library();
    model().setPracticeIndex(3);

    const auto keysOf = [this](const QString &id) {
        for (const Shortcut &shortcut : model().pool().records()) {
            if (shortcut.id == id)
                return shortcut.keys;
        }
        return QStringList();
    };
    const auto set = [](const QString &key, const QList<QStringList> &keys) {
        return platform::SystemShortcut{
            u"gnome:org.gnome.desktop.wm.keybindings/"_s + key,
            u"Jinak"_s,
            keys.first(),
            platform::SystemShortcut::Kind::windows,
            u"GNOME"_s,
            keys.sliced(1)};
    };
    const QStringList superQ{u"⌘"_s, u"Q"_s};
    const QStringList minimize = keysOf(u"minimize"_s);
    const QSignalSpy changes(&model(), &AppModel::libraryChanged);
    // Unchanged ones, also beside further keys, and one that the library lacks.
    fake.systemShortcuts->answer(QList{
        set(u"close"_s, {superQ, keysOf(u"close-window"_s)}), set(u"minimize"_s, {minimize}),
        set(u"begin-lunch"_s, {superQ})});
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_EQ(model().library(), before);
    EXPECT_EQ(model().practiceIndex(), 3);
    EXPECT_EQ(fake.systemShortcuts->reads(), 2) << "they may have changed since it was begun";
    fake.systemShortcuts->answer(std::nullopt);
    EXPECT_EQ(fake.systemShortcuts->reads(), 2);

    model().refreshSystemKeys();
    fake.systemShortcuts->answer(QList{set(u"close"_s, {superQ})});
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(keysOf(u"close-window"_s), superQ);
    EXPECT_EQ(keysOf(u"minimize"_s), minimize);
    EXPECT_EQ(model().practiceIndex(), 3) << "the quiz goes on";

    model().refreshSystemKeys();
    fake.systemShortcuts->answer(std::nullopt);
    EXPECT_EQ(keysOf(u"close-window"_s), superQ) << "what was known counts on";

    // An import brings them along, and takes the place of the question under way.
    model().refreshSystemKeys();
    model().importSystemShortcuts();
    const int reads = fake.systemShortcuts->reads();
    model().refreshSystemKeys();
    EXPECT_EQ(fake.systemShortcuts->reads(), reads);
    fake.systemShortcuts->answer(QList<platform::SystemShortcut>());
    EXPECT_EQ(model().library(), before);
    model().refreshSystemKeys();
    EXPECT_EQ(fake.systemShortcuts->reads(), reads + 1);
    fake.systemShortcuts->answer(QList{set(u"close"_s, {superQ})});
    model().setLibraryChoice(LibraryChoice::mac);
    EXPECT_EQ(model().library(), ShortcutLibrary::all());
}

TEST_F(AppModelStateTest, TheDesktopsLibraryLeavesOutWhatThePersonHasSwitchedOff)
{
    fake.kind.family = platform::DesktopFamily::gnome;
    fake.systemShortcuts->setAvailable();
    const auto schema = u"gnome:org.gnome.desktop.wm.keybindings/"_s;
    preset(u"favorites"_s, QVariantList{u"copy"_s, u"minimize"_s});
    preset(u"usageCounts"_s, QVariantMap{{u"minimize"_s, 7LL}});
    model().setLibraryChoice(LibraryChoice::desktop);
    const QList<Shortcut> before = model().library();
    QStringList missing;
    const auto answer = [&](const QStringList &withoutKeys) {
        fake.systemShortcuts->answer(
            {{schema + u"close"_s,
              u"Zavřít"_s,
              {u"⌥"_s, u"F4"_s},
              platform::SystemShortcut::Kind::windows,
              u"GNOME"_s}},
            withoutKeys);
        missing.clear();
        for (const Shortcut &shortcut : before) {
            if (!model().library().contains(shortcut))
                missing.append(shortcut.id);
        }
    };
    // What the settings tell nothing of stays, and so does what is none of theirs.
    answer({});
    EXPECT_EQ(missing, QStringList());
    // One that is told to have keys as well has them.
    const QSignalSpy changes(&model(), &AppModel::libraryChanged);
    model().refreshSystemKeys();
    answer({schema + u"minimize"_s, schema + u"close"_s, schema + u"unheard"_s, QString()});
    EXPECT_EQ(missing, QStringList{u"minimize"_s});
    EXPECT_EQ(model().library().size(), before.size() - 1);
    EXPECT_EQ(model().pool().records(), model().library());
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(model().favorites(), (QSet<QString>{u"copy"_s, u"minimize"_s}));
    EXPECT_EQ(model().usageCounts().value(u"minimize"_s), 7);

    // An import brings the same along, and nothing of it.
    model().importSystemShortcuts();
    answer({schema + u"minimize"_s, schema + u"maximize"_s});
    EXPECT_EQ(missing, (QStringList{u"minimize"_s, u"maximize"_s}));
    EXPECT_TRUE(model().customShortcuts().isEmpty());

    model().refreshSystemKeys();
    answer({});
    EXPECT_EQ(model().library(), before) << "switched on again";
}

TEST_F(AppModelStateTest, WhatTheSettingsOfAnotherDesktopTellJoinsWhatProgramsShare)
{
    model().setLibraryChoice(LibraryChoice::desktop);
    EXPECT_EQ(fake.systemShortcuts->reads(), 0) << "there are none to read";
    const QList<Shortcut> shared = model().library();
    EXPECT_EQ(shared.size(), 43);
    for (const Shortcut &shortcut : shared)
        EXPECT_FALSE(shortcut.keys.isEmpty()) << qPrintable(shortcut.id);

    fake.systemShortcuts->setAvailable();
    model().refreshSystemKeys();
    EXPECT_EQ(fake.systemShortcuts->reads(), 1);
    const auto mate = u"mate:org.mate.Marco.window-keybindings/"_s;
    const auto close = [](const QString &actionId) {
        return platform::SystemShortcut{
            actionId,
            u"Close"_s,
            {u"⌥"_s, u"F4"_s},
            platform::SystemShortcut::Kind::windows,
            u"A"_s};
    };
    fake.systemShortcuts->answer({close(mate + u"close"_s)}, {mate + u"minimize"_s});
    QList<Shortcut> added = model().library();
    added.removeIf([&](const Shortcut &shortcut) { return shared.contains(shortcut); });
    ASSERT_EQ(added.size(), 1);
    EXPECT_EQ(added.first().id, u"close-window"_s);
    EXPECT_EQ(added.first().title, u"Zavřít okno"_s);
    EXPECT_EQ(added.first().keys, (QStringList{u"⌥"_s, u"F4"_s}));

    // The same of another desktop, by its own name; it is not imported beside it.
    model().importSystemShortcuts();
    fake.systemShortcuts->answer(QList{close(u"openbox:Close"_s)});
    EXPECT_EQ(model().library().size(), 44);
    EXPECT_TRUE(model().customShortcuts().isEmpty());

    model().refreshSystemKeys();
    fake.systemShortcuts->answer(QList<platform::SystemShortcut>());
    EXPECT_EQ(model().library(), shared);
}

} // namespace hmatnik::test
