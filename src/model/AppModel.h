#pragma once

#include "model/FilteredShortcuts.h"
#include "model/KeyNames.h"
#include "model/LibraryChoice.h"
#include "model/ModifierFilter.h"
#include "model/Shortcut.h"
#include "model/ShortcutOrigin.h"
#include "model/ShortcutPool.h"
#include "model/SidebarSelection.h"
#include "model/TextFolding.h"
#include "platform/BackgroundTasks.h"
#include "platform/Desktop.h"
#include "system/MenuShortcutImporter.h"

#include <QHash>
#include <QList>
#include <QLocale>
#include <QObject>
#include <QSet>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

namespace hmatnik {

class SmartShortcutObserver;

/// The one observable model that every screen reads. Lives on the main thread for the whole run.
///
/// Every observed field has a setter that notifies only when the value really changes. What is
/// persisted is written at the moment it changes; nothing is saved at exit.
class AppModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)
    Q_PROPERTY(QString activeApp READ activeApp NOTIFY activeAppChanged)
    Q_PROPERTY(bool isImporting READ isImporting NOTIFY isImportingChanged)
    Q_PROPERTY(QString importMessage READ importMessageText NOTIFY importMessageChanged)
    Q_PROPERTY(bool smartSuggestionsEnabled READ smartSuggestionsEnabled NOTIFY
                   smartSuggestionsEnabledChanged)
    Q_PROPERTY(bool learningModeEnabled READ learningModeEnabled NOTIFY learningModeEnabledChanged)
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin NOTIFY launchAtLoginChanged)

public:
    /// Imported shortcuts of one origin that were deleted together.
    struct ImportedDeletion
    {
        ShortcutOrigin origin;
        /// The custom shortcuts as they were.
        QList<Shortcut> before;
        QSet<QString> ids;
        /// Those of the ids that were favourites.
        QSet<QString> favorites;
        qsizetype count = 0;
    };

    /// Loads the stored state, reads the application in front and subscribes to activations.
    /// @param locale decides how texts are compared without regard to case.
    explicit AppModel(
        platform::Desktop desktop, const QLocale &locale = QLocale(), QObject *parent = nullptr);
    ~AppModel() override;

    // Observed fields.
    const QString &search() const { return m_search; }
    void setSearch(const QString &search);
    const SidebarSelection &selection() const { return m_selection; }
    void setSelection(const SidebarSelection &selection);
    const ModifierFilters &modifierFilters() const { return m_modifierFilters; }
    void setModifierFilters(const ModifierFilters &filters);
    /// Name of the application in front, ours excepted after start-up; "Mac" when unknown.
    const QString &activeApp() const { return m_activeApp; }
    std::optional<std::int32_t> activeAppPID() const { return m_activeAppPID; }
    const QList<Shortcut> &customShortcuts() const { return m_customShortcuts; }
    /// Replaces the list in memory; call saveCustomShortcuts() to store it.
    void setCustomShortcuts(const QList<Shortcut> &shortcuts);
    bool smartSuggestionsEnabled() const { return m_smartSuggestionsEnabled; }
    bool learningModeEnabled() const { return m_learningModeEnabled; }
    const std::optional<Shortcut> &latestSuggestion() const { return m_latestSuggestion; }
    const QString &latestSuggestionReason() const { return m_latestSuggestionReason; }
    const std::optional<QString> &importMessage() const { return m_importMessage; }
    bool isImporting() const { return m_isImporting; }
    int practiceIndex() const { return m_practiceIndex; }
    void setPracticeIndex(int index);
    int practiceScore() const { return m_practiceScore; }
    void setPracticeScore(int score);
    bool practiceAnswered() const { return m_practiceAnswered; }
    void setPracticeAnswered(bool answered);
    bool launchAtLogin() const { return m_launchAtLogin; }
    /// Whether suggestions are also shown as messages of the desktop.
    bool tipsEnabled() const { return m_tipsChoice.value_or(true); }
    /// Whether the person has ever decided about that.
    bool isTipsChoiceMade() const { return m_tipsChoice.has_value(); }
    /// Whose names the keys have where they are shown; always those of the Mac on one.
    KeyStyle keyStyle() const { return m_keyStyle; }
    /// Which library the pool begins with; always that of the Mac on one.
    LibraryChoice libraryChoice() const { return m_libraryChoice; }
    /// The built-in records of that library.
    const QList<Shortcut> &library() const { return m_library; }
    const QSet<QString> &favorites() const { return m_favorites; }
    const QHash<QString, qint64> &usageCounts() const { return m_usageCounts; }

    // Settings and storage.
    /// Stores the custom shortcuts; silently nothing if they can't be encoded.
    void saveCustomShortcuts();
    /// Takes up what other processes of the program have stored. The actions below do so by
    /// themselves before they change anything; whoever calls setCustomShortcuts() does so before.
    void refresh();
    void setSmartSuggestions(bool enabled);
    void setLearningMode(bool enabled);
    void setTipsEnabled(bool enabled);
    /// Chooses and stores the names of keys; nothing happens on a Mac.
    void setKeyStyle(KeyStyle style);
    /// Chooses and stores the library, and begins practice anew; nothing happens on a Mac.
    void setLibraryChoice(LibraryChoice choice);
    /// Has the keys read anew that the person has set for the desktop's actions, if its library is
    /// chosen; people change them elsewhere. Its records then show these, and those that are
    /// switched off go.
    void refreshSystemKeys();
    /// Registers or unregisters the login item. Gives the desktop's error text on failure, and
    /// launchAtLogin() keeps its value then.
    [[nodiscard]] std::optional<QString> setLaunchAtLogin(bool enabled);
    /// Asks the desktop again whether it starts the program at login; people change that elsewhere.
    void refreshLaunchAtLogin();
    /// Starts or stops the observer of menu clicks as the setting says. Called again by itself when
    /// the permission to look into other programs comes, at login often later than this object.
    void updateSmartObserver();

    // Filtering and ranking; computed from the current state at every call.
    /// The chosen library followed by the custom shortcuts.
    const ShortcutPool &pool() const { return m_pool; }
    /// Positions in the pool, ascending, of what the library grid shows.
    std::vector<int> filteredPositions() const;
    /// The same as records.
    FilteredShortcuts filtered() const;
    void toggleModifier(ModifierFilter filter);
    /// At most four shortcuts for the application in front, most used first.
    QList<Shortcut> contextual() const;
    /// The shortcut of the day; changes at local midnight.
    Shortcut dailyShortcut() const;

    // Actions.
    void toggleFavorite(const Shortcut &shortcut);
    void deleteCustom(const Shortcut &shortcut);
    /// Deletes all custom shortcuts that were imported from there. Ignored if there are none.
    void deleteImported(const ShortcutOrigin &origin);
    /// Brings what the last deleteImported() took back to its places, as favourites too.
    void undoImportedDeletion();
    /// What undoImportedDeletion() would bring back.
    const std::optional<ImportedDeletion> &importedDeletion() const { return m_importedDeletion; }
    /// Imports the menu shortcuts of the application in front; the outcome is told in
    /// importMessage(). A call while an import runs is ignored.
    void importFrontmostMenu();
    /// Imports the desktop's own shortcuts as the person has set them, in the same way. Those that
    /// the chosen library has already are left out.
    void importSystemShortcuts();
    /// Counts a menu command chosen with the mouse and, when it is due, suggests its keys.
    void recordMouseAction(const QString &title);

    /// Which keys have names while the quiz asks the task: those of the Mac's library are asked in
    /// its own notation while it is chosen.
    KeyNaming practiceNaming(const Shortcut &task) const;
    /// Whether some press would answer the quiz if it asked the shortcut.
    bool canBePractised(const Shortcut &shortcut) const;
    /// Opens a new round of the quiz that asks this shortcut first.
    void requestPractice(const Shortcut &shortcut);
    /// The shortcut that the next round shall ask first; given away once.
    std::optional<Shortcut> takePracticeRequest();

    /// The desktop this model was made for; screens that keep values of their own use it.
    const platform::Desktop &desktop() const { return m_desktop; }

Q_SIGNALS:
    void searchChanged();
    void selectionChanged();
    void modifierFiltersChanged();
    void activeAppChanged();
    void activeAppPIDChanged();
    void customShortcutsChanged();
    void smartSuggestionsEnabledChanged();
    void learningModeEnabledChanged();
    void latestSuggestionChanged();
    void latestSuggestionReasonChanged();
    void importMessageChanged();
    void isImportingChanged();
    void practiceIndexChanged();
    void practiceScoreChanged();
    void practiceAnsweredChanged();
    void launchAtLoginChanged();
    void keyStyleChanged();
    void libraryChanged();
    void favoritesChanged();
    void usageCountsChanged();
    void tipsEnabledChanged();
    /// A suggestion was made, perhaps the same as before; its fields are set.
    void suggested();
    /// There is a shortcut for takePracticeRequest().
    void practiceRequested();
    void importedDeletionChanged();

private:
    QString importMessageText() const { return m_importMessage.value_or(QString()); }

    /// Sets a field and emits its signal, if the value is another one.
    template <typename Field>
    void
    assign(Field &field, const std::type_identity_t<Field> &value, void (AppModel::*changed)());
    void loadSettings();
    void applyKeyStyle(KeyStyle style);
    void saveFavorites();
    void applyLibrary(LibraryChoice choice);
    /// The records of the chosen library, with the keys that the person has set and without those
    /// that they have switched off.
    QList<Shortcut> chosenLibrary() const;
    /// The custom shortcuts without those imported from the desktop's settings that the chosen
    /// library has itself.
    QList<Shortcut> customBesideLibrary() const;
    /// The desktop's names of the actions that the chosen library has.
    QSet<QString> actionsOfLibrary() const;
    void updateLibrary();
    void takeSystemKeys(const platform::SystemShortcutSettings &settings);
    void applicationActivated(const std::optional<platform::RunningApplication> &application);
    /// Applies the outcome of an import and ends it.
    void finishImport(const MenuShortcutImporter::Result &result);
    /// Has the desktop's shortcuts read and ends the import with them.
    void readSystemShortcuts();
    void finishSystemImport(const platform::SystemShortcuts::Result &result);
    /// Those that the chosen library has no row for: its rows show the keys that are set anyway,
    /// whatever the desktop calls the action.
    QList<platform::SystemShortcut>
    outsideLibrary(const QList<platform::SystemShortcut> &shortcuts) const;
    /// Gives what was imported from the desktop's settings before the keys that are set now.
    /// @return how many have changed
    qsizetype takeChangedKeys(const QList<platform::SystemShortcut> &shortcuts);
    /// Adds the records that neither the library nor the person has yet, by title and keys.
    /// @return how many.
    qsizetype addImported(const QList<Shortcut> &imported);
    /// The record that a menu title names, if any.
    const Shortcut *shortcutNamed(const QString &menuTitle) const;

    platform::Desktop m_desktop;
    TextFolding m_folding;
    ShortcutPool m_pool;

    QString m_search;
    SidebarSelection m_selection;
    ModifierFilters m_modifierFilters;
    QString m_activeApp;
    std::optional<std::int32_t> m_activeAppPID;
    QList<Shortcut> m_customShortcuts;
    bool m_smartSuggestionsEnabled = true;
    bool m_learningModeEnabled = false;
    std::optional<Shortcut> m_latestSuggestion;
    QString m_latestSuggestionReason;
    std::optional<QString> m_importMessage;
    bool m_isImporting = false;
    int m_practiceIndex = 0;
    int m_practiceScore = 0;
    bool m_practiceAnswered = false;
    bool m_launchAtLogin = false;
    std::optional<bool> m_tipsChoice;
    std::optional<Shortcut> m_practiceRequest;
    KeyStyle m_keyStyle = KeyStyle::mac;
    LibraryChoice m_libraryChoice = LibraryChoice::mac;
    QList<Shortcut> m_library;
    /// All keys that are set, by the desktop's name of the action; the one to show comes first.
    QHash<QString, QList<QStringList>> m_systemKeys;
    /// The desktop's names of those that it knows and that have none.
    QSet<QString> m_actionsWithoutKeys;
    bool m_isReadingSystemKeys = false;
    /// Asked for while they were being read.
    bool m_readsSystemKeysAgain = false;
    QSet<QString> m_favorites;
    QHash<QString, qint64> m_usageCounts;
    std::optional<ImportedDeletion> m_importedDeletion;
    platform::Subscription m_storedElsewhere;
    platform::Subscription m_activationObserver;
    platform::Subscription m_trustObserver;
    std::unique_ptr<SmartShortcutObserver> m_smartObserver;
    // Ended first: what runs there tells this object.
    platform::BackgroundTasks m_imports;
};

} // namespace hmatnik
