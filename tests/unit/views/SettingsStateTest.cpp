#include "views/SettingsState.h"

#include "FakeDesktop.h"
#include "model/AppModel.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

Shortcut ownShortcut(const QString &id)
{
    return {id, u"Zkratka "_s + id, {u"⌘"_s, u"K"_s}, Shortcut::Category::text, {}, u"…"_s};
}

Shortcut importedShortcut(const QString &app, int number)
{
    const QString title = app + u' ' + QString::number(number);
    return {u"menu-"_s + title,          title, {u"⌘"_s, u"K"_s},
            Shortcut::Category::zaklady, {app}, u"…"_s};
}

Shortcut desktopShortcut(int number)
{
    const QString title = u"Plocha "_s + QString::number(number);
    return {u"system-"_s + title, title, {u"⌘"_s, u"K"_s}, Shortcut::Category::okna, {}, u"…"_s};
}

} // namespace

class SettingsStateTest : public testing::Test
{
protected:
    SettingsStateTest() { open(); }

    /// Opens the sheet anew.
    void open()
    {
        m_settings = std::make_unique<SettingsState>();
        m_settings->setModel(&m_model);
    }

    QStringList titles() const
    {
        QStringList titles;
        CustomShortcutRows *rows = m_settings->customShortcuts();
        for (int row = 0; row < rows->rowCount(); ++row)
            titles.append(rows->data(rows->index(row), CustomShortcutRows::TitleRole).toString());
        return titles;
    }

    test::FakeDesktop m_desktop;
    AppModel m_model{m_desktop.desktop()};
    std::unique_ptr<SettingsState> m_settings;
};

TEST_F(SettingsStateTest, ShowsWhatTheModelAndTheDesktopSay)
{
    EXPECT_FALSE(m_settings->launchAtLogin());
    EXPECT_TRUE(m_settings->smartSuggestions());
    EXPECT_FALSE(m_settings->learningMode());
    EXPECT_FALSE(m_settings->isAlertShown());
}

TEST_F(SettingsStateTest, SwitchesActAtOnce)
{
    QSignalSpy changes(m_settings.get(), &SettingsState::changed);
    m_settings->setLaunchAtLogin(true);
    EXPECT_TRUE(m_settings->launchAtLogin());
    EXPECT_EQ(m_desktop.loginItem->requests(), QList<bool>{true});
    EXPECT_EQ(changes.count(), 1);
    m_settings->setSmartSuggestions(false);
    EXPECT_FALSE(m_settings->smartSuggestions());
    EXPECT_EQ(m_desktop.preferences->value(u"smartSuggestions"_s), QVariant(false));
    EXPECT_EQ(changes.count(), 2);
    m_settings->setLearningMode(true);
    EXPECT_TRUE(m_settings->learningMode());
    EXPECT_EQ(m_desktop.preferences->value(u"learningMode"_s), QVariant(true));
    EXPECT_EQ(changes.count(), 3);
    EXPECT_FALSE(m_settings->isAlertShown());
}

TEST_F(SettingsStateTest, AChangeMadeElsewhereShowsAtOnce)
{
    const QSignalSpy changes(m_settings.get(), &SettingsState::changed);
    m_model.setSmartSuggestions(false);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_FALSE(m_settings->smartSuggestions());
}

TEST_F(SettingsStateTest, ALoginItemRemovedByHandShowsTheNextTime)
{
    m_settings->setLaunchAtLogin(true);
    m_desktop.loginItem->setState(false);
    open();
    EXPECT_FALSE(m_settings->launchAtLogin());
    m_desktop.loginItem->setState(true);
    open();
    EXPECT_TRUE(m_settings->launchAtLogin());
}

TEST_F(SettingsStateTest, AFailingLoginItemShowsTheSystemsMessage)
{
    m_desktop.loginItem->setError(u"Přístup odepřen"_s);
    const QSignalSpy alerts(m_settings.get(), &SettingsState::errorMessageChanged);
    m_settings->setLaunchAtLogin(true);
    EXPECT_FALSE(m_settings->launchAtLogin());
    EXPECT_EQ(alerts.count(), 1);
    EXPECT_TRUE(m_settings->isAlertShown());
    EXPECT_EQ(m_settings->alertMessage(), u"Přístup odepřen"_s);

    m_settings->closeAlert();
    EXPECT_EQ(alerts.count(), 2);
    EXPECT_FALSE(m_settings->isAlertShown());
    EXPECT_EQ(m_settings->errorMessage(), std::nullopt);
    EXPECT_EQ(m_settings->alertMessage(), QString());
    m_settings->closeAlert();
    EXPECT_EQ(alerts.count(), 2);
}

TEST_F(SettingsStateTest, AFailingUnregistrationLeavesTheSwitchOn)
{
    m_settings->setLaunchAtLogin(true);
    m_desktop.loginItem->setError(u"Plný disk"_s);
    m_settings->setLaunchAtLogin(false);
    EXPECT_TRUE(m_settings->launchAtLogin());
    EXPECT_EQ(m_settings->alertMessage(), u"Plný disk"_s);
}

TEST_F(SettingsStateTest, AnEmptyErrorStillShowsTheAlert)
{
    m_desktop.loginItem->setError(QString());
    m_settings->setLaunchAtLogin(true);
    EXPECT_TRUE(m_settings->isAlertShown());
    EXPECT_EQ(m_settings->alertMessage(), u"Neznámá chyba"_s);
}

TEST_F(SettingsStateTest, TheErrorEndsWithTheSheet)
{
    m_desktop.loginItem->setError(u"Ne"_s);
    m_settings->setLaunchAtLogin(true);
    open();
    EXPECT_FALSE(m_settings->isAlertShown());
}

TEST_F(SettingsStateTest, ALoginItemThatAwaitsApprovalIsOffWithoutAnAlert)
{
    m_desktop.loginItem->setNeedsApproval(true);
    m_settings->setLaunchAtLogin(true);
    EXPECT_FALSE(m_settings->launchAtLogin());
    EXPECT_FALSE(m_settings->isAlertShown());
}

TEST_F(SettingsStateTest, AsksForThePermissionOnlyWhenTold)
{
    EXPECT_EQ(m_desktop.accessibility->trustRequests(), 0);
    m_settings->requestAccessibility();
    EXPECT_EQ(m_desktop.accessibility->trustRequests(), 1);
    m_settings->requestAccessibility();
    EXPECT_EQ(m_desktop.accessibility->trustRequests(), 2);
}

TEST_F(SettingsStateTest, AnObserverStartsOnceTheSwitchIsOnAndThePermissionIsThere)
{
    m_settings->setSmartSuggestions(false);
    m_desktop.accessibility->setTrusted(false);
    m_settings->setSmartSuggestions(true);
    EXPECT_EQ(m_desktop.mouseMonitor->monitorCount(), 0);
    m_desktop.accessibility->setTrusted(true);
    EXPECT_EQ(m_desktop.mouseMonitor->monitorCount(), 1);
}

TEST_F(SettingsStateTest, ListsOwnShortcutsInTheModelsOrder)
{
    EXPECT_EQ(m_settings->customShortcuts()->count(), 0);
    const QSignalSpy counts(m_settings->customShortcuts(), &CustomShortcutRows::countChanged);
    m_model.setCustomShortcuts({ownShortcut(u"b"_s), ownShortcut(u"a"_s), ownShortcut(u"c"_s)});
    EXPECT_EQ(counts.count(), 1);
    EXPECT_EQ(titles(), (QStringList{u"Zkratka b"_s, u"Zkratka a"_s, u"Zkratka c"_s}));
    const CustomShortcutRows &rows = *m_settings->customShortcuts();
    EXPECT_EQ(
        rows.data(rows.index(1), CustomShortcutRows::KeysRole).toStringList(),
        (QStringList{u"⌘"_s, u"K"_s}));
    EXPECT_EQ(
        rows.data(rows.index(1), CustomShortcutRows::SpokenKeysRole).toString(), u"Command K"_s);
    EXPECT_EQ(rows.roleNames().value(CustomShortcutRows::SpokenKeysRole), "spokenKeys"_ba);
    open();
    EXPECT_EQ(titles(), (QStringList{u"Zkratka b"_s, u"Zkratka a"_s, u"Zkratka c"_s}));
}

TEST_F(SettingsStateTest, DeletesOneRowAndTellsOfThatRowOnly)
{
    m_model.setCustomShortcuts({ownShortcut(u"a"_s), ownShortcut(u"b"_s), ownShortcut(u"c"_s)});
    m_model.toggleFavorite(ownShortcut(u"b"_s));
    const QSignalSpy removals(m_settings->customShortcuts(), &QAbstractItemModel::rowsRemoved);
    const QSignalSpy insertions(m_settings->customShortcuts(), &QAbstractItemModel::rowsInserted);
    m_settings->deleteCustom(1);
    EXPECT_EQ(titles(), (QStringList{u"Zkratka a"_s, u"Zkratka c"_s}));
    ASSERT_EQ(removals.count(), 1);
    EXPECT_EQ(removals.first().at(1), 1);
    EXPECT_EQ(removals.first().at(2), 1);
    EXPECT_EQ(insertions.count(), 0);
    EXPECT_FALSE(m_model.favorites().contains(u"b"_s));
    EXPECT_EQ(AppModel(m_desktop.desktop()).customShortcuts(), m_model.customShortcuts());
}

TEST_F(SettingsStateTest, DeletingTheLastOneLeavesNone)
{
    m_model.setCustomShortcuts({ownShortcut(u"a"_s)});
    m_settings->deleteCustom(0);
    EXPECT_EQ(m_settings->customShortcuts()->count(), 0);
    EXPECT_TRUE(m_model.customShortcuts().isEmpty());
}

TEST_F(SettingsStateTest, MessagesTurnedOffCanBeTurnedOnHere)
{
    EXPECT_FALSE(m_settings->isTipsSwitchShown());
    EXPECT_TRUE(m_settings->tips());
    const QSignalSpy changes(m_settings.get(), &SettingsState::changed);
    m_model.setTipsEnabled(false);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_TRUE(m_settings->isTipsSwitchShown());
    EXPECT_FALSE(m_settings->tips());
    m_settings->setTips(true);
    EXPECT_TRUE(m_model.tipsEnabled());
    EXPECT_TRUE(m_settings->isTipsSwitchShown());
}

TEST_F(SettingsStateTest, RowsOutOfRangeAreIgnored)
{
    m_model.setCustomShortcuts({ownShortcut(u"a"_s)});
    m_settings->deleteCustom(1);
    m_settings->deleteCustom(-1);
    EXPECT_EQ(m_settings->customShortcuts()->count(), 1);
    const CustomShortcutRows &rows = *m_settings->customShortcuts();
    EXPECT_FALSE(rows.data(QModelIndex(), CustomShortcutRows::TitleRole).isValid());
}

TEST_F(SettingsStateTest, RecordsOfOneIdGoTogether)
{
    m_model.setCustomShortcuts({ownShortcut(u"a"_s), ownShortcut(u"b"_s), ownShortcut(u"a"_s)});
    m_settings->deleteCustom(2);
    EXPECT_EQ(titles(), QStringList{u"Zkratka b"_s});
}

TEST_F(SettingsStateTest, AnImportInTheMeantimeIsShown)
{
    QList<Shortcut> shortcuts{ownShortcut(u"a"_s)};
    m_model.setCustomShortcuts(shortcuts);
    const QSignalSpy removals(m_settings->customShortcuts(), &QAbstractItemModel::rowsRemoved);
    const QSignalSpy insertions(m_settings->customShortcuts(), &QAbstractItemModel::rowsInserted);
    for (int i = 0; i < 500; ++i)
        shortcuts.append(ownShortcut(QString::number(i)));
    m_model.setCustomShortcuts(shortcuts);
    EXPECT_EQ(m_settings->customShortcuts()->count(), 501);
    EXPECT_EQ(removals.count(), 0);
    ASSERT_EQ(insertions.count(), 1);
    EXPECT_EQ(insertions.first().at(1), 1);
    EXPECT_EQ(insertions.first().at(2), 500);
}

TEST_F(SettingsStateTest, RowsAreHeadedByWhereTheyWereImportedFrom)
{
    CustomShortcutRows &rows = *m_settings->customShortcuts();
    m_model.setCustomShortcuts({ownShortcut(u"a"_s), ownShortcut(u"b"_s)});
    EXPECT_EQ(rows.headings(), 0) << "without imports there is nothing to tell apart";
    const auto isHeaded = [&](int row) {
        return rows.data(rows.index(row), CustomShortcutRows::StartsRunRole).toBool();
    };
    EXPECT_FALSE(isHeaded(0));
    const QSignalSpy changes(&rows, &QAbstractItemModel::dataChanged);
    m_model.setCustomShortcuts(
        {importedShortcut(u"Pages"_s, 1), importedShortcut(u"Pages"_s, 2),
         importedShortcut(u"Numbers"_s, 1), ownShortcut(u"a"_s), ownShortcut(u"b"_s),
         importedShortcut(u"Pages"_s, 3), desktopShortcut(1), desktopShortcut(2),
         ownShortcut(u"c"_s)});
    EXPECT_EQ(rows.headings(), 6);
    EXPECT_EQ(changes.count(), 1);
    QStringList headings;
    QList<bool> imported;
    for (int row = 0; row < rows.count(); ++row) {
        const QModelIndex index = rows.index(row);
        const QString heading = rows.data(index, CustomShortcutRows::HeadingRole).toString();
        EXPECT_EQ(rows.heading(row), heading);
        headings.append(isHeaded(row) ? heading : QString());
        imported.append(rows.data(index, CustomShortcutRows::ImportedRole).toBool());
        EXPECT_EQ(rows.isImported(row), imported.last());
    }
    EXPECT_EQ(
        headings, (QStringList{
                      u"Z menu aplikace Pages"_s, QString(), u"Z menu aplikace Numbers"_s,
                      u"Přidané ručně"_s, QString(), u"Z menu aplikace Pages"_s,
                      u"Z nastavení plochy"_s, QString(), u"Přidané ručně"_s}));
    EXPECT_EQ(imported, (QList<bool>{true, true, true, false, false, true, true, true, false}));
    EXPECT_EQ(rows.heading(9), QString());
    EXPECT_EQ(rows.heading(-1), QString());
    EXPECT_FALSE(rows.isImported(9));
    EXPECT_EQ(rows.roleNames().value(CustomShortcutRows::HeadingRole), "heading"_ba);
    EXPECT_EQ(rows.roleNames().value(CustomShortcutRows::ImportedRole), "imported"_ba);
}

TEST_F(SettingsStateTest, AnImportIsDeletedAndBroughtBack)
{
    m_model.setCustomShortcuts(
        {importedShortcut(u"Pages"_s, 1), ownShortcut(u"a"_s), importedShortcut(u"Pages"_s, 2)});
    const QSignalSpy told(m_settings.get(), &SettingsState::changed);
    EXPECT_EQ(m_settings->deletionText(), QString());
    m_settings->deleteImported(1); // added by hand
    m_settings->deleteImported(3);
    EXPECT_EQ(titles().size(), 3);
    m_settings->deleteImported(2);
    EXPECT_EQ(titles(), QStringList{u"Zkratka a"_s});
    EXPECT_EQ(m_settings->deletionText(), u"Smazány zkratky aplikace Pages (2)"_s);
    EXPECT_EQ(told.count(), 1);
    open(); // the way back is still there
    EXPECT_EQ(m_settings->deletionText(), u"Smazány zkratky aplikace Pages (2)"_s);
    m_settings->undoDeletion();
    EXPECT_EQ(titles(), (QStringList{u"Pages 1"_s, u"Zkratka a"_s, u"Pages 2"_s}));
    EXPECT_EQ(m_settings->deletionText(), QString());
}

TEST_F(SettingsStateTest, TheDesktopsShortcutsAreDeletedAndBroughtBack)
{
    m_model.setCustomShortcuts(
        {desktopShortcut(1), importedShortcut(u"Pages"_s, 1), desktopShortcut(2)});
    m_settings->deleteImported(0);
    EXPECT_EQ(titles(), QStringList{u"Pages 1"_s});
    EXPECT_EQ(m_settings->deletionText(), u"Smazány zkratky plochy (2)"_s);
    m_settings->undoDeletion();
    EXPECT_EQ(titles(), (QStringList{u"Plocha 1"_s, u"Pages 1"_s, u"Plocha 2"_s}));
}

// The sheet binds to a state before that has its model.
TEST_F(SettingsStateTest, DeletionFromBeforeIsToldWithTheModel)
{
    m_model.setCustomShortcuts({importedShortcut(u"Pages"_s, 1)});
    m_settings->deleteImported(0);
    SettingsState later;
    const QMetaObject &meta = *later.metaObject();
    const QSignalSpy told(
        &later, meta.property(meta.indexOfProperty("deletionText")).notifySignal());
    EXPECT_EQ(later.deletionText(), QString());
    later.setModel(&m_model);
    EXPECT_EQ(later.deletionText(), u"Smazány zkratky aplikace Pages (1)"_s);
    EXPECT_EQ(told.count(), 1);
}

TEST_F(SettingsStateTest, WithoutAModelEverythingIsOff)
{
    SettingsState settings;
    settings.setLaunchAtLogin(true);
    settings.setSmartSuggestions(true);
    settings.setLearningMode(true);
    settings.setTips(true);
    settings.requestAccessibility();
    settings.deleteCustom(0);
    settings.deleteImported(0);
    settings.undoDeletion();
    EXPECT_EQ(settings.deletionText(), QString());
    EXPECT_FALSE(settings.launchAtLogin());
    EXPECT_FALSE(settings.smartSuggestions());
    EXPECT_FALSE(settings.learningMode());
    EXPECT_FALSE(settings.tips());
    EXPECT_FALSE(settings.isTipsSwitchShown());
    EXPECT_FALSE(settings.isAlertShown());
}

TEST_F(SettingsStateTest, NamesOfKeysAreChosenByTheirPlace)
{
    EXPECT_TRUE(m_settings->hasKeyboardChoices());
    EXPECT_EQ(SettingsState::keyStyles().size(), 2);
    EXPECT_EQ(m_settings->keyStyle(), 0);
    const QSignalSpy changes(m_settings.get(), &SettingsState::changed);
    m_settings->setKeyStyle(1);
    EXPECT_EQ(m_model.keyStyle(), KeyStyle::pc);
    EXPECT_EQ(m_settings->keyStyle(), 1);
    EXPECT_FALSE(changes.isEmpty());
    for (const int place : {-1, 2})
        m_settings->setKeyStyle(place);
    EXPECT_EQ(m_settings->keyStyle(), 1);
    m_settings->setKeyStyle(0);
    EXPECT_EQ(m_model.keyStyle(), KeyStyle::mac);
}

TEST_F(SettingsStateTest, OnAMacThereIsNothingToChoose)
{
    m_desktop.kind.hasMacKeyboard = true;
    AppModel model(m_desktop.desktop());
    SettingsState settings;
    EXPECT_FALSE(settings.hasKeyboardChoices());
    settings.setModel(&model);
    EXPECT_FALSE(settings.hasKeyboardChoices());
}

TEST_F(SettingsStateTest, RowsShowTheChosenNamesAtOnce)
{
    m_model.setCustomShortcuts({ownShortcut(u"a"_s), ownShortcut(u"b"_s)});
    CustomShortcutRows *rows = m_settings->customShortcuts();
    const auto keys = [rows](int row) {
        return rows->data(rows->index(row), CustomShortcutRows::KeysRole).toStringList();
    };
    EXPECT_EQ(keys(0), (QStringList{u"⌘"_s, u"K"_s}));
    const QSignalSpy changes(rows, &QAbstractItemModel::dataChanged);
    m_model.setKeyStyle(KeyStyle::pc);
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changes[0][1].toModelIndex().row(), 1);
    EXPECT_EQ(keys(1), (QStringList{u"Super"_s, u"K"_s}));
    open();
    EXPECT_EQ(
        m_settings->customShortcuts()
            ->data(m_settings->customShortcuts()->index(0), CustomShortcutRows::KeysRole)
            .toStringList(),
        (QStringList{u"Super"_s, u"K"_s}));
}

TEST_F(SettingsStateTest, LibraryIsChosenByItsPlace)
{
    EXPECT_EQ(SettingsState::libraries().size(), 2);
    EXPECT_EQ(m_settings->library(), 0);
    const QSignalSpy changes(m_settings.get(), &SettingsState::changed);
    m_settings->setLibrary(1);
    EXPECT_EQ(m_model.libraryChoice(), LibraryChoice::desktop);
    EXPECT_EQ(m_settings->library(), 1);
    EXPECT_FALSE(changes.isEmpty());
    for (const int place : {-1, 2})
        m_settings->setLibrary(place);
    EXPECT_EQ(m_settings->library(), 1);
    m_settings->setLibrary(0);
    EXPECT_EQ(m_model.libraryChoice(), LibraryChoice::mac);
}

} // namespace hmatnik
