#include "FakeDesktop.h"
#include "model/AppModel.h"
#include "model/ShortcutLibrary.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <future>
#include <limits>
#include <stop_token>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

constexpr std::int32_t appPid = 77;
const ShortcutOrigin pages{ShortcutOrigin::Kind::menu, u"Pages"_s};
const auto nothingNew = u"V menu nebyly nalezeny žádné nové zkratky."_s;

Shortcut custom(const QString &id, const QString &title = u"Vlastní"_s)
{
    return {id, title, {u"⌘"_s, u"K"_s}, Shortcut::Category::text, {}, u"Popis."_s};
}

/// While it exists the system can start no thread: none fits the address space.
class NoThreads
{
public:
    NoThreads()
    {
        ::pthread_attr_init(&m_before);
        ::pthread_getattr_default_np(&m_before);
        pthread_attr_t endless;
        ::pthread_attr_init(&endless);
        ::pthread_attr_setstacksize(&endless, std::size_t{1} << 47);
        EXPECT_EQ(::pthread_setattr_default_np(&endless), 0);
        ::pthread_attr_destroy(&endless);
    }
    ~NoThreads()
    {
        ::pthread_setattr_default_np(&m_before);
        ::pthread_attr_destroy(&m_before);
    }
    NoThreads(const NoThreads &) = delete;
    NoThreads &operator=(const NoThreads &) = delete;

private:
    pthread_attr_t m_before{};
};

class AppModelActionTest : public testing::Test
{
protected:
    void SetUp() override
    {
        fake.workspace->setFrontmost(platform::RunningApplication{u"Pages"_s, appPid});
        model = std::make_unique<AppModel>(fake.desktop(), QLocale(u"cs_CZ"_s));
    }

    void import()
    {
        model->importFrontmostMenu();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !model->isImporting(); }, 10'000));
    }

    Shortcut builtIn(const QString &id) const
    {
        for (const Shortcut &shortcut : ShortcutLibrary::all()) {
            if (shortcut.id == id)
                return shortcut;
        }
        ADD_FAILURE() << id.toStdString();
        return {};
    }

    QSet<QString> storedFavorites() const
    {
        const QVariant stored = fake.preferences->value(u"favorites"_s);
        EXPECT_EQ(stored.typeId(), QMetaType::QVariantList);
        QSet<QString> ids;
        for (const QVariant &id : stored.toList()) {
            EXPECT_EQ(id.typeId(), QMetaType::QString);
            ids.insert(id.toString());
        }
        EXPECT_EQ(ids.size(), stored.toList().size());
        return ids;
    }

    FakeDesktop fake;
    std::unique_ptr<AppModel> model;
};

} // namespace

TEST_F(AppModelActionTest, ToggleFavoriteStoresTheWholeSetAtOnce)
{
    const QSet<QString> before = model->favorites();
    const QSignalSpy spy(model.get(), &AppModel::favoritesChanged);
    model->toggleFavorite(builtIn(u"undo"_s));
    EXPECT_EQ(model->favorites(), before + QSet<QString>{u"undo"_s});
    EXPECT_EQ(storedFavorites(), model->favorites());
    const QVariant stored = fake.preferences->value(u"favorites"_s);
    model->toggleFavorite(builtIn(u"copy"_s));
    EXPECT_FALSE(model->favorites().contains(u"copy"_s));
    EXPECT_EQ(storedFavorites(), model->favorites());
    model->toggleFavorite(builtIn(u"copy"_s));
    EXPECT_EQ(fake.preferences->value(u"favorites"_s), stored);
    model->toggleFavorite(builtIn(u"undo"_s));
    EXPECT_EQ(model->favorites(), before);
    EXPECT_EQ(storedFavorites(), before);
    EXPECT_EQ(spy.count(), 4);
    EXPECT_EQ(fake.preferences->writes().size(), 4);
}

TEST_F(AppModelActionTest, TogglingTheLastFavouriteAwayStoresAnEmptyArray)
{
    for (const QString &id : model->favorites().values())
        model->toggleFavorite(builtIn(id));
    EXPECT_TRUE(model->favorites().isEmpty());
    EXPECT_EQ(fake.preferences->value(u"favorites"_s), QVariant(QVariantList()));
    model = std::make_unique<AppModel>(fake.desktop());
    EXPECT_TRUE(model->favorites().isEmpty());
}

TEST_F(AppModelActionTest, DeleteCustomRemovesEveryRecordOfTheId)
{
    const Shortcut first = custom(u"custom-1"_s, u"První"_s);
    const Shortcut second = custom(u"custom-2"_s, u"Druhá"_s);
    const Shortcut again = custom(u"custom-1"_s, u"Jinak"_s);
    const Shortcut third = custom(u"custom-3"_s, u"Třetí"_s);
    model->setCustomShortcuts({first, second, again, third});
    model->toggleFavorite(first);
    fake.preferences->clearWrites();

    model->deleteCustom(custom(u"custom-1"_s, u"Třetí znění"_s));
    EXPECT_EQ(model->customShortcuts(), (QList<Shortcut>{second, third}));
    EXPECT_FALSE(model->favorites().contains(u"custom-1"_s));
    // The favourites' key keeps the id until it is next written.
    EXPECT_EQ(fake.preferences->writtenKeys(), QStringList{u"customShortcuts"_s});
    EXPECT_TRUE(storedFavorites().contains(u"custom-1"_s));
    EXPECT_EQ(
        Shortcut::fromJson(fake.preferences->value(u"customShortcuts"_s).toByteArray()),
        (QList<Shortcut>{second, third}));
    model->toggleFavorite(builtIn(u"undo"_s));
    EXPECT_FALSE(storedFavorites().contains(u"custom-1"_s));
}

TEST_F(AppModelActionTest, DeleteCustomMayBeGivenTheModelsOwnRecord)
{
    model->setCustomShortcuts({custom(u"custom-1"_s), custom(u"custom-2"_s)});
    model->deleteCustom(model->customShortcuts().first());
    model->deleteCustom(model->pool().at(58));
    EXPECT_TRUE(model->customShortcuts().isEmpty());
}

TEST_F(AppModelActionTest, DeleteCustomOfABuiltInRecordTakesItsFavouriteMark)
{
    model->setCustomShortcuts({custom(u"custom-1"_s)});
    const QSignalSpy spy(model.get(), &AppModel::customShortcutsChanged);
    model->deleteCustom(builtIn(u"copy"_s));
    EXPECT_EQ(spy.count(), 0);
    EXPECT_EQ(model->customShortcuts().size(), 1);
    EXPECT_EQ(model->pool().size(), 59);
    EXPECT_FALSE(model->favorites().contains(u"copy"_s));
    EXPECT_EQ(fake.preferences->writtenKeys(), QStringList{u"customShortcuts"_s});
}

TEST_F(AppModelActionTest, DeleteCustomKeepsUsageCounts)
{
    model->setCustomShortcuts({custom(u"custom-1"_s, u"Jedinečný"_s)});
    model->recordMouseAction(u"Jedinečný"_s);
    model->deleteCustom(custom(u"custom-1"_s));
    EXPECT_EQ(model->usageCounts().value(u"custom-1"_s), 1);
}

TEST_F(AppModelActionTest, ImportedShortcutsKnowWhereTheyCameFrom)
{
    using Kind = ShortcutOrigin::Kind;
    Shortcut imported = custom(u"menu-Pages-Nový-⌘N"_s);
    imported.apps = {u"Pages"_s};
    EXPECT_EQ(ShortcutOrigin::of(imported), (ShortcutOrigin{Kind::menu, u"Pages"_s}));
    imported.id = u"custom-menu-"_s;
    EXPECT_EQ(ShortcutOrigin::of(imported), ShortcutOrigin()) << "one for an application, by hand";
    EXPECT_EQ(ShortcutOrigin::of(custom(u"menu-1"_s)), ShortcutOrigin()) << "of no application";
    imported = custom(u"menu-1"_s);
    imported.apps = {QString()};
    EXPECT_EQ(ShortcutOrigin::of(imported), ShortcutOrigin()) << "of one without a name";

    imported = custom(u"system-kde:kwin/Window Close-⌥F4"_s);
    EXPECT_EQ(ShortcutOrigin::of(imported), ShortcutOrigin{Kind::desktop});
    imported.apps = {u"Pages"_s};
    EXPECT_EQ(ShortcutOrigin::of(imported), ShortcutOrigin()) << "the desktop's are of none";
    EXPECT_EQ(ShortcutOrigin::of(custom(u"custom-system-"_s)), ShortcutOrigin());
}

TEST_F(AppModelActionTest, ShortcutsOfOneApplicationAreDeletedTogetherAndComeBackToTheirPlaces)
{
    const Shortcut own = custom(u"custom-1"_s, u"Vlastní"_s);
    const Shortcut later = custom(u"custom-2"_s, u"Pozdější"_s);
    const auto imported = [](const QString &app, const QString &title) {
        Shortcut shortcut = custom(u"menu-"_s + app + u'-' + title, title);
        shortcut.apps = {app};
        return shortcut;
    };
    const Shortcut first = imported(u"Pages"_s, u"První"_s);
    const Shortcut other = imported(u"Numbers"_s, u"Jiná"_s);
    const Shortcut second = imported(u"Pages"_s, u"Druhá"_s);
    // The same command twice in one menu makes twins.
    const QList<Shortcut> before{first, own, second, second, other};
    model->setCustomShortcuts(before);
    model->saveCustomShortcuts();
    model->toggleFavorite(second);
    model->toggleFavorite(own);
    const QSet<QString> favorites = model->favorites();
    fake.preferences->clearWrites();
    const QSignalSpy told(model.get(), &AppModel::importedDeletionChanged);

    model->deleteImported(pages);
    EXPECT_EQ(model->customShortcuts(), (QList<Shortcut>{own, other}));
    EXPECT_EQ(model->favorites(), favorites - QSet{second.id});
    EXPECT_EQ(fake.preferences->writtenKeys(), QStringList{u"customShortcuts"_s});
    ASSERT_TRUE(model->importedDeletion());
    EXPECT_EQ(model->importedDeletion()->origin, pages);
    EXPECT_EQ(model->importedDeletion()->count, 3);
    EXPECT_EQ(told.count(), 1);

    // What happens meanwhile stays.
    model->deleteCustom(other);
    model->setCustomShortcuts(model->customShortcuts() + QList<Shortcut>{later});
    model->toggleFavorite(builtIn(u"undo"_s)); // writes the favourites without the deleted ones
    model->undoImportedDeletion();
    EXPECT_EQ(model->customShortcuts(), (QList<Shortcut>{first, own, second, second, later}));
    EXPECT_EQ(model->favorites(), favorites + QSet{u"undo"_s});
    EXPECT_FALSE(model->importedDeletion());
    EXPECT_EQ(told.count(), 2);
    const AppModel next(fake.desktop());
    EXPECT_EQ(next.customShortcuts(), model->customShortcuts());
    EXPECT_EQ(next.favorites(), model->favorites());

    model->undoImportedDeletion();
    EXPECT_EQ(model->customShortcuts().size(), 5) << "once";
}

TEST_F(AppModelActionTest, ShortcutsOfTheDesktopAreDeletedTogetherAndComeBack)
{
    Shortcut menu = custom(u"menu-Pages-A"_s);
    menu.apps = {u"Pages"_s};
    const Shortcut close = custom(u"system-kde:kwin/Window Close-⌥F4"_s);
    const Shortcut lock = custom(u"system-kde:ksmserver/Lock Session-⌘L"_s);
    const QList<Shortcut> before{close, menu, custom(u"custom-1"_s), lock};
    model->setCustomShortcuts(before);
    model->toggleFavorite(lock);
    const QSet<QString> favorites = model->favorites();

    model->deleteImported({ShortcutOrigin::Kind::desktop});
    EXPECT_EQ(model->customShortcuts(), (QList<Shortcut>{menu, custom(u"custom-1"_s)}));
    EXPECT_EQ(model->favorites(), favorites - QSet{lock.id});
    ASSERT_TRUE(model->importedDeletion());
    EXPECT_EQ(model->importedDeletion()->count, 2);
    EXPECT_EQ(AppModel(fake.desktop()).customShortcuts(), model->customShortcuts());
    model->undoImportedDeletion();
    EXPECT_EQ(model->customShortcuts(), before);
    EXPECT_EQ(model->favorites(), favorites);
    EXPECT_EQ(AppModel(fake.desktop()).customShortcuts(), before);
}

TEST_F(AppModelActionTest, WhatWasImportedAgainDoesNotComeBackTwice)
{
    Shortcut imported = custom(u"menu-Pages-A"_s);
    imported.apps = {u"Pages"_s};
    model->setCustomShortcuts({imported, custom(u"custom-1"_s)});
    model->deleteImported(pages);
    model->setCustomShortcuts(model->customShortcuts() + QList<Shortcut>{imported});
    model->undoImportedDeletion();
    EXPECT_EQ(model->customShortcuts(), (QList<Shortcut>{custom(u"custom-1"_s), imported}));
}

TEST_F(AppModelActionTest, DeletingWhatWasNeverImportedIsNothing)
{
    model->setCustomShortcuts({custom(u"custom-1"_s), custom(u"menu-1"_s)});
    fake.preferences->clearWrites();
    model->deleteImported(pages);
    model->deleteImported({ShortcutOrigin::Kind::desktop});
    model->deleteImported({});
    EXPECT_EQ(model->customShortcuts().size(), 2);
    EXPECT_FALSE(model->importedDeletion());
    model->undoImportedDeletion();
    EXPECT_TRUE(fake.preferences->writes().isEmpty());
}

TEST_F(AppModelActionTest, ActionsBuildOnWhatAnotherProcessStored)
{
    fake.preferences->storeElsewhere(u"favorites"_s, QVariantList{u"undo"_s, u"copy"_s});
    model->toggleFavorite(builtIn(u"save"_s));
    EXPECT_EQ(storedFavorites(), (QSet{u"undo"_s, u"copy"_s, u"save"_s}));

    fake.preferences->storeElsewhere(u"usageCounts"_s, QVariantMap{{u"copy"_s, qint64(6)}});
    model->recordMouseAction(u"Kopírovat"_s);
    EXPECT_EQ(model->usageCounts(), (QHash<QString, qint64>{{u"copy"_s, 7}}));

    const Shortcut theirs = custom(u"custom-1"_s, u"Jejich"_s);
    const Shortcut ours = custom(u"custom-2"_s, u"Naše"_s);
    model->setCustomShortcuts({ours});
    model->saveCustomShortcuts();
    fake.preferences->storeElsewhere(u"customShortcuts"_s, Shortcut::toJson({ours, theirs}));
    model->deleteCustom(ours);
    EXPECT_EQ(model->customShortcuts(), QList{theirs});

    fake.accessibility->setMenuBar(77, {});
    fake.preferences->storeElsewhere(u"customShortcuts"_s, Shortcut::toJson({theirs, ours}));
    import();
    EXPECT_EQ(model->customShortcuts(), (QList{theirs, ours}));
}

TEST_F(AppModelActionTest, AStarDoesWhatItLooksLike)
{
    // Another process has made it a favourite as well; here it is none yet.
    fake.preferences->storeElsewhere(u"favorites"_s, QVariantList{u"save"_s});
    model->toggleFavorite(builtIn(u"save"_s));
    EXPECT_EQ(storedFavorites(), QSet{u"save"_s});
    model->toggleFavorite(builtIn(u"save"_s));
    EXPECT_TRUE(storedFavorites().isEmpty());
}

TEST_F(AppModelActionTest, ImportAddsWhatIsNew)
{
    const Shortcut own = custom(u"custom-1"_s, u"Moje Zkratka"_s);
    model->setCustomShortcuts({own});
    fake.accessibility->setMenuBar(
        appPid, {
                    FakeElement::menuItem(u"KOPÍROVAT"_s, u"c"_s),    // known, in capitals
                    FakeElement::menuItem(u"Kopírovat"_s, u"c"_s, 1), // other keys
                    FakeElement::menuItem(u"moje zkratka"_s, u"k"_s), // known custom record
                    FakeElement::menuItem(u"Kopirovat"_s, u"c"_s),    // another word
                    FakeElement::menuItem(u"Zarovnat"_s, u"j"_s),
                });
    import();
    QStringList titles;
    for (const Shortcut &shortcut : model->customShortcuts())
        titles.append(shortcut.title);
    EXPECT_EQ(
        titles, (QStringList{u"Moje Zkratka"_s, u"Kopírovat"_s, u"Kopirovat"_s, u"Zarovnat"_s}));
    EXPECT_EQ(model->importMessage(), u"Importováno 3 zkratek z aplikace Pages."_s);
    EXPECT_EQ(model->customShortcuts().last().id, u"menu-Pages-Zarovnat-⌘J"_s);
    EXPECT_EQ(
        Shortcut::fromJson(fake.preferences->value(u"customShortcuts"_s).toByteArray()),
        model->customShortcuts());
    EXPECT_EQ(model->pool().size(), 62);

    import();
    EXPECT_EQ(model->importMessage(), nothingNew);
    EXPECT_EQ(model->customShortcuts().size(), 4);
}

TEST_F(AppModelActionTest, ImportOfOneKeepsTheWordForMany)
{
    fake.accessibility->setMenuBar(appPid, {FakeElement::menuItem(u"Zarovnat"_s, u"j"_s)});
    import();
    EXPECT_EQ(model->importMessage(), u"Importováno 1 zkratek z aplikace Pages."_s);
}

TEST_F(AppModelActionTest, ImportKeepsTwinsWithinOneBatch)
{
    fake.accessibility->setMenuBar(
        appPid, {FakeElement::menuItem(u"Zarovnat"_s, u"j"_s),
                 FakeElement::menuItem(u"Zarovnat"_s, u"j"_s)});
    import();
    ASSERT_EQ(model->customShortcuts().size(), 2);
    EXPECT_EQ(model->customShortcuts().at(0), model->customShortcuts().at(1));
    EXPECT_EQ(model->importMessage(), u"Importováno 2 zkratek z aplikace Pages."_s);
}

TEST_F(AppModelActionTest, ImportOfNothingNewStillSaves)
{
    fake.accessibility->setMenuBar(appPid, {FakeElement::menuItem(u"Vložit"_s, u"v"_s)});
    const QSignalSpy spy(model.get(), &AppModel::customShortcutsChanged);
    import();
    EXPECT_EQ(model->importMessage(), nothingNew);
    EXPECT_EQ(spy.count(), 0);
    EXPECT_EQ(fake.preferences->writtenKeys(), QStringList{u"customShortcuts"_s});

    fake.accessibility->setMenuBar(appPid, {});
    import();
    EXPECT_EQ(model->importMessage(), nothingNew);
}

TEST_F(AppModelActionTest, ImportFailuresOnlyTell)
{
    model->setCustomShortcuts({custom(u"custom-1"_s)});
    EXPECT_EQ(model->property("importMessage"), u""_s);
    import();
    EXPECT_EQ(model->importMessage(), localizedDescription(MenuImportError::menu));
    EXPECT_EQ(model->property("importMessage"), *model->importMessage());
    fake.accessibility->setTrusted(false);
    import();
    EXPECT_EQ(model->importMessage(), localizedDescription(MenuImportError::permission));
    EXPECT_EQ(fake.accessibility->trustRequests(), 1);
    EXPECT_EQ(model->customShortcuts().size(), 1);
    EXPECT_TRUE(fake.preferences->writes().isEmpty());
}

TEST_F(AppModelActionTest, ImportWithoutAnApplicationFailsAtOnce)
{
    fake.workspace->setFrontmost(std::nullopt);
    model = std::make_unique<AppModel>(fake.desktop());
    QList<bool> importing;
    QObject::connect(model.get(), &AppModel::isImportingChanged, model.get(), [&] {
        importing.append(model->isImporting());
    });
    model->importFrontmostMenu();
    EXPECT_FALSE(model->isImporting());
    EXPECT_EQ(importing, (QList<bool>{true, false}));
    EXPECT_EQ(model->importMessage(), localizedDescription(MenuImportError::application));
    EXPECT_EQ(fake.accessibility->applicationQueries(), 0) << "nobody is asked";
}

TEST_F(AppModelActionTest, WithoutAnApplicationTheDesktopsOwnShortcutsAreImported)
{
    fake.workspace->setFrontmost(std::nullopt);
    fake.systemShortcuts->setAvailable();
    model = std::make_unique<AppModel>(fake.desktop());
    model->importFrontmostMenu();
    EXPECT_TRUE(model->isImporting());
    model->importFrontmostMenu();
    model->importSystemShortcuts();
    EXPECT_EQ(fake.systemShortcuts->reads(), 1);
    using Kind = platform::SystemShortcut::Kind;
    const QList<platform::SystemShortcut> shortcuts{
        {u"a:close"_s, u"Zavřít vše"_s, {u"⌥"_s, u"F4"_s}, Kind::windows, u"A"_s},
        // Known from the library, by title and keys.
        {u"a:copy"_s, u"KOPÍROVAT"_s, {u"⌘"_s, u"C"_s}, Kind::general, u"A"_s}};
    fake.systemShortcuts->answer(shortcuts);
    EXPECT_FALSE(model->isImporting());
    EXPECT_EQ(model->importMessage(), u"Importována 1 zkratka plochy."_s);
    ASSERT_EQ(model->customShortcuts().size(), 1);
    EXPECT_EQ(model->customShortcuts().first().title, u"Zavřít vše"_s);
    EXPECT_TRUE(model->customShortcuts().first().apps.isEmpty());
    EXPECT_EQ(
        Shortcut::fromJson(fake.preferences->value(u"customShortcuts"_s).toByteArray()),
        model->customShortcuts());

    model->importSystemShortcuts();
    fake.systemShortcuts->answer(shortcuts);
    EXPECT_EQ(model->importMessage(), u"V nastavení plochy nebyly nalezeny žádné nové zkratky."_s);
    EXPECT_EQ(model->customShortcuts().size(), 1);

    model->importSystemShortcuts();
    fake.systemShortcuts->answer(std::nullopt);
    EXPECT_EQ(model->importMessage(), localizedDescription(MenuImportError::menu));
    EXPECT_FALSE(model->isImporting());
    EXPECT_EQ(model->customShortcuts().size(), 1);

    model->importSystemShortcuts();
    model.reset();
    fake.systemShortcuts->answer(shortcuts);
}

TEST_F(AppModelActionTest, WhatTheDesktopsLibraryHasIsNotImportedBesideIt)
{
    fake.kind.family = platform::DesktopFamily::gnome;
    fake.systemShortcuts->setAvailable();
    model = std::make_unique<AppModel>(fake.desktop());
    model->setLibraryChoice(LibraryChoice::desktop);
    using Kind = platform::SystemShortcut::Kind;
    const auto schema = u"gnome:org.gnome.desktop.wm.keybindings/"_s;
    // By the name of the action: neither its title nor its keys need be those of the library.
    const QList<platform::SystemShortcut> shortcuts{
        {schema + u"close"_s, u"Close window"_s, {u"⌥"_s, u"F4"_s}, Kind::windows, u"GNOME"_s},
        {schema + u"minimize"_s, u"Hide window"_s, {u"⌘"_s, u"J"_s}, Kind::windows, u"GNOME"_s},
        {schema + u"raise"_s, u"Raise window"_s, {u"⌘"_s, u"R"_s}, Kind::windows, u"GNOME"_s}};
    const auto importAll = [&] {
        model->importSystemShortcuts();
        fake.systemShortcuts->answer(shortcuts);
        return *model->importMessage();
    };
    const auto titles = [this] {
        QStringList all;
        for (const Shortcut &shortcut : model->customShortcuts())
            all.append(shortcut.title);
        return all;
    };
    EXPECT_EQ(importAll(), u"Importována 1 zkratka plochy."_s);
    EXPECT_EQ(titles(), QStringList{u"Raise window"_s});
    EXPECT_EQ(importAll(), u"V nastavení plochy nebyly nalezeny žádné nové zkratky."_s);

    // The Mac's library has no such rows.
    model->setLibraryChoice(LibraryChoice::mac);
    EXPECT_EQ(importAll(), u"Importovány 2 zkratky plochy."_s);
    EXPECT_EQ(titles(), (QStringList{u"Raise window"_s, u"Close window"_s, u"Hide window"_s}));
}

TEST_F(AppModelActionTest, AnImportedShortcutTakesTheKeysThatALaterImportFinds)
{
    fake.systemShortcuts->setAvailable();
    model = std::make_unique<AppModel>(fake.desktop());
    using Kind = platform::SystemShortcut::Kind;
    platform::SystemShortcut close{
        u"a/close"_s, u"Zavřít jedno"_s, {u"⌥"_s, u"F4"_s}, Kind::windows, u"A"_s};
    const platform::SystemShortcut raise{
        u"a/raise"_s, u"Zvednout jedno"_s, {u"⌘"_s, u"R"_s}, Kind::windows, u"A"_s};
    const auto importAll = [&] {
        model->importSystemShortcuts();
        fake.systemShortcuts->answer({close, raise});
        return *model->importMessage();
    };
    importAll();
    model->toggleFavorite(model->customShortcuts().first());
    close.keys = {u"⌘"_s, u"Q"_s};
    EXPECT_EQ(importAll(), u"Importována 1 zkratka plochy."_s);
    ASSERT_EQ(model->customShortcuts().size(), 2);
    const Shortcut &now = model->customShortcuts().first();
    EXPECT_EQ(now.keys, close.keys);
    EXPECT_EQ(now.title, u"Zavřít jedno"_s);
    EXPECT_TRUE(model->favorites().contains(now.id)) << "it is the same shortcut";
    EXPECT_EQ(AppModel(fake.desktop()).customShortcuts(), model->customShortcuts());
    EXPECT_TRUE(AppModel(fake.desktop()).favorites().contains(now.id));
    EXPECT_EQ(importAll(), u"V nastavení plochy nebyly nalezeny žádné nové zkratky."_s);
}

TEST_F(AppModelActionTest, WhatTheDesktopsLibraryHasIsNotShownBesideIt)
{
    fake.kind.family = platform::DesktopFamily::gnome;
    fake.systemShortcuts->setAvailable();
    model = std::make_unique<AppModel>(fake.desktop());
    using Kind = platform::SystemShortcut::Kind;
    const auto schema = u"gnome:org.gnome.desktop.wm.keybindings/"_s;
    model->importSystemShortcuts();
    fake.systemShortcuts->answer(
        {{schema + u"close"_s, u"Zavřít jedno"_s, {u"⌥"_s, u"F4"_s}, Kind::windows, u"GNOME"_s},
         {schema + u"raise"_s, u"Zvednout jedno"_s, {u"⌘"_s, u"R"_s}, Kind::windows, u"GNOME"_s}});
    const QList<Shortcut> imported = model->customShortcuts();
    ASSERT_EQ(imported.size(), 2);
    const auto shown = [this, &imported] {
        QStringList titles;
        for (const Shortcut &shortcut : imported) {
            if (model->pool().records().contains(shortcut))
                titles.append(shortcut.title);
        }
        return titles;
    };
    EXPECT_EQ(shown(), (QStringList{u"Zavřít jedno"_s, u"Zvednout jedno"_s}));
    model->setLibraryChoice(LibraryChoice::desktop);
    EXPECT_EQ(shown(), QStringList{u"Zvednout jedno"_s});
    EXPECT_EQ(model->customShortcuts(), imported) << "it is kept, and can be deleted";
    model->deleteCustom(imported[1]);
    EXPECT_TRUE(shown().isEmpty());
    model->setLibraryChoice(LibraryChoice::mac);
    EXPECT_EQ(shown(), QStringList{u"Zavřít jedno"_s});
}

TEST_F(AppModelActionTest, TheDesktopsOwnShortcutsAreCountedInCzech)
{
    fake.systemShortcuts->setAvailable();
    model = std::make_unique<AppModel>(fake.desktop());
    int first = 0;
    const auto messageFor = [&](int count) {
        QList<platform::SystemShortcut> shortcuts;
        for (int i = first; i < first + count; ++i)
            shortcuts.append(
                {u"a:"_s + QString::number(i),
                 QString::number(i),
                 {u"⌘"_s, u"F9"_s},
                 platform::SystemShortcut::Kind::windows,
                 u"A"_s});
        first += count;
        model->importSystemShortcuts();
        fake.systemShortcuts->answer(shortcuts);
        return *model->importMessage();
    };
    EXPECT_EQ(messageFor(2), u"Importovány 2 zkratky plochy."_s);
    EXPECT_EQ(messageFor(4), u"Importovány 4 zkratky plochy."_s);
    EXPECT_EQ(messageFor(5), u"Importováno 5 zkratek plochy."_s);
    EXPECT_EQ(messageFor(22), u"Importováno 22 zkratek plochy."_s);
}

TEST_F(AppModelActionTest, ImportOfThisProgramFails)
{
    fake.workspace->setFrontmost(platform::RunningApplication{u"Hmatník"_s, FakeWorkspace::ownPid});
    model = std::make_unique<AppModel>(fake.desktop());
    import();
    EXPECT_EQ(model->importMessage(), localizedDescription(MenuImportError::application));
}

TEST_F(AppModelActionTest, ImportRunsAsideAndOnlyOnceAtATime)
{
    fake.accessibility->setMenuBar(appPid, {FakeElement::menuItem(u"Zarovnat"_s, u"j"_s)});
    std::promise<void> gate;
    std::atomic<bool> aside = false;
    fake.accessibility->setBeforeApplicationElement(
        [opened = gate.get_future().share(), &aside,
         main = QThread::currentThread()](const std::stop_token &) {
            aside = QThread::currentThread() != main;
            opened.wait();
        });
    QList<QThread *> threads;
    QObject::connect(model.get(), &AppModel::importMessageChanged, model.get(), [&] {
        threads.append(QThread::currentThread());
        // Observers of the message still see the import under way.
        EXPECT_TRUE(model->isImporting());
    });
    model->importFrontmostMenu();
    EXPECT_TRUE(model->isImporting());
    model->importFrontmostMenu();
    model->importFrontmostMenu();
    // The name in the message is the one at the end, the name in the records the one at the start.
    fake.workspace->activate(u"Finder"_s, 99);
    EXPECT_EQ(model->importMessage(), std::nullopt);
    gate.set_value();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !model->isImporting(); }, 10'000));
    QCoreApplication::processEvents();
    EXPECT_TRUE(aside);
    EXPECT_EQ(threads, QList<QThread *>{QThread::currentThread()});
    EXPECT_EQ(fake.accessibility->applicationQueries(), 1);
    EXPECT_EQ(model->importMessage(), u"Importováno 1 zkratek z aplikace Finder."_s);
    EXPECT_EQ(model->customShortcuts().value(0).apps, QStringList{u"Pages"_s});
}

TEST_F(AppModelActionTest, AnImportEndsWithTheModel)
{
    fake.accessibility->setMenuBar(appPid, {FakeElement::menuItem(u"Zarovnat"_s, u"j"_s)});
    std::promise<void> entered;
    std::atomic<bool> hasEnded = false;
    fake.accessibility->setBeforeApplicationElement([&](const std::stop_token &stop) {
        entered.set_value();
        while (!stop.stop_requested())
            QThread::yieldCurrentThread();
        // Whoever did not wait for it is gone by now.
        QThread::msleep(100);
        hasEnded = true;
    });
    model->importFrontmostMenu();
    entered.get_future().wait();
    model.reset();
    EXPECT_TRUE(hasEnded) << "it is asked to stop, and waited for";
    const std::weak_ptr<FakeAccessibility> accessibility = fake.accessibility;
    fake.accessibility.reset();
    EXPECT_TRUE(accessibility.expired());
    QCoreApplication::processEvents();
    EXPECT_TRUE(fake.preferences->writes().isEmpty());
}

TEST_F(AppModelActionTest, AnImportWithoutAThreadFailsAndCanBeTriedAgain)
{
    fake.accessibility->setMenuBar(appPid, {FakeElement::menuItem(u"Zarovnat"_s, u"j"_s)});
    {
        const NoThreads none;
        model->importFrontmostMenu();
        EXPECT_FALSE(model->isImporting());
        EXPECT_EQ(model->importMessage(), localizedDescription(MenuImportError::application));
        EXPECT_TRUE(fake.preferences->writes().isEmpty());
    }
    import();
    EXPECT_EQ(model->importMessage(), u"Importováno 1 zkratek z aplikace Pages."_s);
}

TEST_F(AppModelActionTest, AnImportWaitsAsideForALatePermission)
{
    fake.accessibility->setMenuBar(appPid, {FakeElement::menuItem(u"Zarovnat"_s, u"j"_s)});
    fake.accessibility->setTrusted(false);
    std::atomic<bool> aside = false;
    fake.accessibility->setBeforeTrust(
        [&, main = QThread::currentThread()](const std::stop_token &) {
            aside = QThread::currentThread() != main;
            QThread::msleep(100);
            QMetaObject::invokeMethod(
                model.get(), [this] { fake.accessibility->setTrusted(true); },
                Qt::BlockingQueuedConnection);
        });
    import();
    EXPECT_TRUE(aside);
    EXPECT_EQ(model->importMessage(), u"Importováno 1 zkratek z aplikace Pages."_s);
    EXPECT_EQ(fake.accessibility->trustRequests(), 0);
}

TEST_F(AppModelActionTest, TheSameMessageAgainIsNoChange)
{
    import();
    const QSignalSpy messages(model.get(), &AppModel::importMessageChanged);
    const QSignalSpy importing(model.get(), &AppModel::isImportingChanged);
    import();
    EXPECT_EQ(messages.count(), 0);
    EXPECT_EQ(importing.count(), 2);
}

TEST_F(AppModelActionTest, TheSecondMouseUseSuggests)
{
    model->recordMouseAction(u"KOPIROVAT"_s);
    EXPECT_EQ(model->usageCounts(), (QHash<QString, qint64>{{u"copy"_s, 1}}));
    EXPECT_EQ(model->latestSuggestion(), std::nullopt);
    EXPECT_EQ(model->latestSuggestionReason(), QString());
    const QSignalSpy suggestions(model.get(), &AppModel::latestSuggestionChanged);
    const QSignalSpy reasons(model.get(), &AppModel::latestSuggestionReasonChanged);
    const QSignalSpy counts(model.get(), &AppModel::usageCountsChanged);
    model->recordMouseAction(u"KOPIROVAT"_s);
    EXPECT_EQ(model->latestSuggestion(), builtIn(u"copy"_s));
    EXPECT_EQ(
        model->latestSuggestionReason(),
        u"Položku „KOPIROVAT“ jste použili myší. Příště to zkuste rychleji klávesami."_s);
    EXPECT_EQ(
        fake.preferences->value(u"usageCounts"_s), QVariant(QVariantMap{{u"copy"_s, qint64(2)}}));
    EXPECT_EQ(
        fake.preferences->value(u"usageCounts"_s).toMap().value(u"copy"_s).typeId(),
        QMetaType::LongLong);
    model->recordMouseAction(u"KOPIROVAT"_s);
    EXPECT_EQ(suggestions.count(), 1);
    EXPECT_EQ(reasons.count(), 1);
    EXPECT_EQ(counts.count(), 2);
}

TEST_F(AppModelActionTest, LearningModeSuggestsFromTheFirstUse)
{
    model->setLearningMode(true);
    model->recordMouseAction(u"Vložit"_s);
    EXPECT_EQ(model->usageCounts().value(u"paste"_s), 1);
    EXPECT_EQ(model->latestSuggestion(), builtIn(u"paste"_s));
    EXPECT_EQ(
        model->latestSuggestionReason(),
        u"Položku „Vložit“ jste použili myší. Příště to zkuste rychleji klávesami."_s);
}

TEST_F(AppModelActionTest, WithSuggestionsOffNothingIsCounted)
{
    model->setSmartSuggestions(false);
    fake.preferences->clearWrites();
    model->recordMouseAction(u"Kopírovat"_s);
    model->recordMouseAction(u"Kopírovat"_s);
    EXPECT_TRUE(model->usageCounts().isEmpty());
    EXPECT_EQ(model->latestSuggestion(), std::nullopt);
    EXPECT_TRUE(fake.preferences->writes().isEmpty());
}

TEST_F(AppModelActionTest, TitlesMatchInBothDirectionsAndTheFirstRecordWins)
{
    const auto matched = [this](const QString &title) {
        const auto before = model->usageCounts();
        model->recordMouseAction(title);
        for (const auto &[id, count] : model->usageCounts().asKeyValueRange()) {
            if (before.value(id) != count)
                return id;
        }
        return QString();
    };
    EXPECT_EQ(matched(u"Najít a nahradit…"_s), u"find"_s); // the record's title is shorter
    EXPECT_EQ(matched(u"zpet"_s), u"undo"_s);              // the menu title is shorter
    EXPECT_EQ(matched(u"Otevřít Stažené"_s), u"open"_s);   // earlier, though less exact
    EXPECT_EQ(matched(u"okno"_s), u"close-window"_s);
    EXPECT_EQ(matched(u"Bez obdoby"_s), QString());
    model->setCustomShortcuts(
        {custom(u"custom-1"_s, u"Bez Obdoby"_s), custom(u"custom-2"_s, u"Kopírovat styl"_s)});
    EXPECT_EQ(matched(u"bez obdoby"_s), u"custom-1"_s);
    EXPECT_EQ(matched(u"Kopírovat styl"_s), u"copy"_s);
}

TEST_F(AppModelActionTest, EmptyTextsNameNothing)
{
    model->setCustomShortcuts(
        {custom(u"custom-1"_s, QString()), custom(u"custom-2"_s, u"\u030C"_s)});
    model->recordMouseAction(QString());
    model->recordMouseAction(u"\u0301"_s);
    model->recordMouseAction(u"Bez obdoby"_s);
    EXPECT_TRUE(model->usageCounts().isEmpty());
}

TEST_F(AppModelActionTest, TurkishTitlesMatchInTurkish)
{
    model = std::make_unique<AppModel>(fake.desktop(), QLocale(u"tr_TR"_s));
    model->setCustomShortcuts(
        {custom(u"custom-1"_s, u"Yazdır"_s), custom(u"custom-2"_s, u"İlk"_s)});
    model->recordMouseAction(u"YAZDIR"_s);
    model->recordMouseAction(u"ILK"_s);
    EXPECT_EQ(model->usageCounts(), (QHash<QString, qint64>{{u"custom-1"_s, 1}}));
    model->recordMouseAction(u"ilk"_s);
    EXPECT_EQ(model->usageCounts().value(u"custom-2"_s), 1);
}

TEST_F(AppModelActionTest, StoredCountsGoOnAndNeverOverflow)
{
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    fake.preferences->preset(
        u"usageCounts"_s, QVariantMap{{u"copy"_s, qint64(1)}, {u"paste"_s, most}});
    model = std::make_unique<AppModel>(fake.desktop());
    model->recordMouseAction(u"Kopírovat"_s);
    EXPECT_EQ(model->latestSuggestion(), builtIn(u"copy"_s));
    model->recordMouseAction(u"Vložit"_s);
    EXPECT_EQ(model->usageCounts(), (QHash<QString, qint64>{{u"copy"_s, 2}, {u"paste"_s, most}}));
}

TEST_F(AppModelActionTest, AMenuChosenWithTheMouseReachesTheModel)
{
    model->setLearningMode(true);
    fake.accessibility->setElementAtPosition(FakeElement::menuItem(u"Uložit"_s, u"s"_s));
    fake.mouseMonitor->press({3, 4});
    QCoreApplication::processEvents();
    EXPECT_EQ(model->usageCounts().value(u"save"_s), 1);
    EXPECT_EQ(model->latestSuggestion(), builtIn(u"save"_s));
}

} // namespace hmatnik::test
