#include "model/AppModel.h"

#include "model/DesktopLibrary.h"
#include "model/ShortcutLibrary.h"
#include "system/SmartShortcutObserver.h"
#include "system/SystemShortcutRecords.h"

#include <QPointer>

#include <algorithm>
#include <future>
#include <limits>
#include <stop_token>
#include <utility>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

// The person's preferences outlive the program's versions: keys and types stay as they are.
const auto favoritesKey = u"favorites"_s;
const auto smartSuggestionsKey = u"smartSuggestions"_s;
const auto learningModeKey = u"learningMode"_s;
const auto tipsKey = u"tipNotifications"_s;
const auto usageCountsKey = u"usageCounts"_s;
const auto customShortcutsKey = u"customShortcuts"_s;
const auto keyNamesKey = u"keyNames"_s;
const auto libraryKey = u"library"_s;

constexpr std::size_t contextualLimit = 4;
constexpr qint64 usesBeforeSuggestion = 2;

// Stored values count only if they have exactly the type that this program stores; QVariant would
// happily turn the text "false" into a Boolean.

std::optional<bool> storedBool(const platform::Preferences &preferences, const QString &key)
{
    const QVariant value = preferences.value(key);
    if (value.typeId() != QMetaType::Bool)
        return std::nullopt;
    return value.toBool();
}

/// Empty if there is none.
QString storedString(const platform::Preferences &preferences, const QString &key)
{
    const QVariant value = preferences.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

std::optional<QSet<QString>>
storedStringSet(const platform::Preferences &preferences, const QString &key)
{
    const QVariant value = preferences.value(key);
    if (value.typeId() != QMetaType::QVariantList)
        return std::nullopt;
    QSet<QString> strings;
    const QVariantList list = value.toList();
    for (const QVariant &element : list) {
        if (element.typeId() != QMetaType::QString)
            return std::nullopt;
        strings.insert(element.toString());
    }
    return strings;
}

std::optional<QHash<QString, qint64>>
storedCounts(const platform::Preferences &preferences, const QString &key)
{
    const QVariant value = preferences.value(key);
    if (value.typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    QHash<QString, qint64> counts;
    const QVariantMap map = value.toMap();
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        if (entry->typeId() != QMetaType::LongLong)
            return std::nullopt;
        counts.insert(entry.key(), entry->toLongLong());
    }
    return counts;
}

std::optional<QList<Shortcut>>
storedShortcuts(const platform::Preferences &preferences, const QString &key)
{
    const QVariant value = preferences.value(key);
    if (value.typeId() != QMetaType::QByteArray)
        return std::nullopt;
    return Shortcut::fromJson(value.toByteArray());
}

/// What makes two records the same command to an import.
QString importSignature(const Shortcut &shortcut)
{
    return shortcut.title.toLower() + shortcut.keys.join(QString());
}

/// Both sets, both lists and the sum of both counts, for values that were changed while the stored
/// ones could not be read: no person's doing is lost. What has no sum is as it was changed.
QVariant merged(const QString &key, const QVariant &stored, const QVariant &changed)
{
    if (key == customShortcutsKey) {
        auto shortcuts = Shortcut::fromJson(stored.toByteArray());
        const auto added = Shortcut::fromJson(changed.toByteArray());
        if (!shortcuts || !added)
            return changed;
        QSet<QString> known;
        for (const Shortcut &shortcut : *shortcuts)
            known.insert(shortcut.id);
        std::copy_if(
            added->begin(), added->end(), std::back_inserter(*shortcuts),
            [&](const Shortcut &shortcut) { return !known.contains(shortcut.id); });
        return Shortcut::toJson(*shortcuts);
    }
    if (key == favoritesKey && stored.typeId() == QMetaType::QVariantList) {
        QVariantList ids = stored.toList();
        const QVariantList added = changed.toList();
        std::copy_if(
            added.begin(), added.end(), std::back_inserter(ids),
            [known = ids](const QVariant &id) { return !known.contains(id); });
        return ids;
    }
    if (key == usageCountsKey && stored.typeId() == QMetaType::QVariantMap) {
        QVariantMap counts = stored.toMap();
        const QVariantMap added = changed.toMap();
        for (auto entry = added.begin(); entry != added.end(); ++entry) {
            const qint64 before = counts.value(entry.key()).toLongLong();
            const qint64 room = std::numeric_limits<qint64>::max() - std::max<qint64>(before, 0);
            counts[entry.key()] = before + std::min(entry->toLongLong(), room);
        }
        return counts;
    }
    return changed;
}

QString systemImportMessage(qsizetype added)
{
    if (added == 0)
        return u"V nastavení plochy nebyly nalezeny žádné nové zkratky."_s;
    if (added == 1)
        return u"Importována 1 zkratka plochy."_s;
    const bool isFew = added < 5;
    return (isFew ? u"Importovány %1 zkratky plochy."_s : u"Importováno %1 zkratek plochy."_s)
        .arg(added);
}

} // namespace

AppModel::AppModel(platform::Desktop desktop, const QLocale &locale, QObject *parent)
    : QObject(parent)
    , m_desktop(std::move(desktop))
    , m_folding(locale)
    , m_pool(locale)
    , m_library(ShortcutLibrary::all())
{
    // Whatever is in front now counts, this program included; only later activations leave it out.
    const auto frontmost = m_desktop.workspace->frontmostApplication();
    m_activeApp = frontmost ? frontmost->localizedName.value_or(QString()) : QString();
    if (m_activeApp.isEmpty())
        m_activeApp = u"Mac"_s;
    if (frontmost)
        m_activeAppPID = frontmost->processIdentifier;
    m_launchAtLogin = m_desktop.loginItem->isEnabled();
    loadSettings();
    m_desktop.preferences->setMerge(merged);
    m_storedElsewhere = m_desktop.preferences->onRefresh([this] {
        loadSettings();
        updateSmartObserver();
    });

    m_activationObserver = m_desktop.workspace->onActivation(
        [model = QPointer<AppModel>(this)](const auto &application) {
            if (model)
                model->applicationActivated(application);
        });
    m_smartObserver = std::make_unique<SmartShortcutObserver>(
        m_desktop.mouseMonitor, m_desktop.accessibility,
        [model = QPointer<AppModel>(this)](const QString &title) {
            if (model)
                model->recordMouseAction(title);
        });
    m_trustObserver = m_desktop.accessibility->onTrustChange([model = QPointer<AppModel>(this)] {
        if (model)
            model->updateSmartObserver();
    });
    updateSmartObserver();
}

AppModel::~AppModel() = default;

template <typename Field>
void AppModel::assign(
    Field &field, const std::type_identity_t<Field> &value, void (AppModel::*changed)())
{
    if (field == value)
        return;
    field = value;
    Q_EMIT(this->*changed)();
}

void AppModel::loadSettings()
{
    const platform::Preferences &preferences = *m_desktop.preferences;
    assign(
        m_favorites,
        storedStringSet(preferences, favoritesKey)
            .value_or(QSet<QString>{u"copy"_s, u"paste"_s, u"spotlight"_s, u"shot-area"_s}),
        &AppModel::favoritesChanged);
    assign(
        m_smartSuggestionsEnabled, storedBool(preferences, smartSuggestionsKey).value_or(true),
        &AppModel::smartSuggestionsEnabledChanged);
    assign(
        m_learningModeEnabled, storedBool(preferences, learningModeKey).value_or(false),
        &AppModel::learningModeEnabledChanged);
    assign(m_tipsChoice, storedBool(preferences, tipsKey), &AppModel::tipsEnabledChanged);
    assign(
        m_usageCounts, storedCounts(preferences, usageCountsKey).value_or(QHash<QString, qint64>()),
        &AppModel::usageCountsChanged);
    // A choice that was made on another desktop doesn't count where it isn't offered.
    if (!m_desktop.kind.hasMacKeyboard) {
        applyKeyStyle(KeyNames::styleFromRawValue(storedString(preferences, keyNamesKey))
                          .value_or(KeyStyle::mac));
        applyLibrary(libraryChoiceFromRawValue(storedString(preferences, libraryKey))
                         .value_or(LibraryChoice::mac));
    }
    setCustomShortcuts(
        storedShortcuts(preferences, customShortcutsKey).value_or(QList<Shortcut>()));
}

void AppModel::refresh()
{
    m_desktop.preferences->refresh();
}

void AppModel::setSearch(const QString &search)
{
    assign(m_search, search, &AppModel::searchChanged);
}

void AppModel::setSelection(const SidebarSelection &selection)
{
    assign(m_selection, selection, &AppModel::selectionChanged);
}

void AppModel::setModifierFilters(const ModifierFilters &filters)
{
    assign(m_modifierFilters, filters, &AppModel::modifierFiltersChanged);
}

void AppModel::setCustomShortcuts(const QList<Shortcut> &shortcuts)
{
    if (m_customShortcuts == shortcuts)
        return;
    m_customShortcuts = shortcuts;
    m_pool.setCustomShortcuts(customBesideLibrary());
    Q_EMIT customShortcutsChanged();
}

void AppModel::setPracticeIndex(int index)
{
    assign(m_practiceIndex, index, &AppModel::practiceIndexChanged);
}

void AppModel::setPracticeScore(int score)
{
    assign(m_practiceScore, score, &AppModel::practiceScoreChanged);
}

void AppModel::setPracticeAnswered(bool answered)
{
    assign(m_practiceAnswered, answered, &AppModel::practiceAnsweredChanged);
}

void AppModel::saveCustomShortcuts()
{
    m_desktop.preferences->setValue(customShortcutsKey, Shortcut::toJson(m_customShortcuts));
}

void AppModel::setSmartSuggestions(bool enabled)
{
    assign(m_smartSuggestionsEnabled, enabled, &AppModel::smartSuggestionsEnabledChanged);
    m_desktop.preferences->setValue(smartSuggestionsKey, enabled);
    updateSmartObserver();
}

void AppModel::setLearningMode(bool enabled)
{
    assign(m_learningModeEnabled, enabled, &AppModel::learningModeEnabledChanged);
    m_desktop.preferences->setValue(learningModeKey, enabled);
}

void AppModel::setTipsEnabled(bool enabled)
{
    assign(m_tipsChoice, std::optional(enabled), &AppModel::tipsEnabledChanged);
    m_desktop.preferences->setValue(tipsKey, enabled);
}

void AppModel::applyKeyStyle(KeyStyle style)
{
    m_pool.setKeyStyle(style);
    assign(m_keyStyle, style, &AppModel::keyStyleChanged);
}

void AppModel::setKeyStyle(KeyStyle style)
{
    if (m_desktop.kind.hasMacKeyboard)
        return;
    applyKeyStyle(style);
    m_desktop.preferences->setValue(keyNamesKey, KeyNames::rawValue(style));
}

void AppModel::applyLibrary(LibraryChoice choice)
{
    if (choice == m_libraryChoice)
        return;
    m_libraryChoice = choice;
    updateLibrary();
    // The tasks of before are no longer asked.
    setPracticeIndex(0);
    setPracticeScore(0);
    refreshSystemKeys();
}

QList<Shortcut> AppModel::chosenLibrary() const
{
    if (m_libraryChoice == LibraryChoice::mac)
        return ShortcutLibrary::all();
    QList<Shortcut> library;
    for (const DesktopShortcut &entry : DesktopLibrary::of(m_desktop.kind.family)) {
        QList<QStringList> set;
        bool isSwitchedOff = false;
        for (const QString &action : entry.actions) {
            set += m_systemKeys.value(action);
            isSwitchedOff = isSwitchedOff || m_actionsWithoutKeys.contains(action);
        }
        // Switched off there, it would be a lesson in keys that do nothing.
        if (set.isEmpty() && (isSwitchedOff || entry.shortcut.keys.isEmpty()))
            continue;
        library.append(entry.shortcut);
        // Of several that the person has set, the usual one is the one to learn.
        if (!set.isEmpty() && !set.contains(entry.shortcut.keys))
            library.last().keys = set.first();
    }
    return library;
}

void AppModel::updateLibrary()
{
    const QList<Shortcut> library = chosenLibrary();
    if (library == m_library)
        return;
    m_library = library;
    m_pool.setLibrary(m_library);
    m_pool.setCustomShortcuts(customBesideLibrary());
    Q_EMIT libraryChanged();
}

QSet<QString> AppModel::actionsOfLibrary() const
{
    QSet<QString> actions;
    if (m_libraryChoice == LibraryChoice::mac)
        return actions;
    for (const DesktopShortcut &entry : DesktopLibrary::of(m_desktop.kind.family))
        actions.unite(QSet<QString>(entry.actions.cbegin(), entry.actions.cend()));
    return actions;
}

QList<Shortcut> AppModel::customBesideLibrary() const
{
    QList<Shortcut> shortcuts = m_customShortcuts;
    const QSet<QString> actions = actionsOfLibrary();
    if (!actions.isEmpty())
        shortcuts.removeIf([&](const Shortcut &shortcut) {
            const QString action = actionOf(shortcut);
            return !action.isEmpty() && actions.contains(action);
        });
    return shortcuts;
}

void AppModel::setLibraryChoice(LibraryChoice choice)
{
    if (m_desktop.kind.hasMacKeyboard)
        return;
    applyLibrary(choice);
    m_desktop.preferences->setValue(libraryKey, rawValue(choice));
}

std::optional<QString> AppModel::setLaunchAtLogin(bool enabled)
{
    if (auto error = m_desktop.loginItem->setEnabled(enabled))
        return error;
    // The desktop may still wait for the person's approval, so its own answer counts.
    assign(m_launchAtLogin, m_desktop.loginItem->isEnabled(), &AppModel::launchAtLoginChanged);
    return std::nullopt;
}

void AppModel::refreshLaunchAtLogin()
{
    assign(m_launchAtLogin, m_desktop.loginItem->isEnabled(), &AppModel::launchAtLoginChanged);
}

void AppModel::updateSmartObserver()
{
    if (m_smartSuggestionsEnabled)
        m_smartObserver->start();
    else
        m_smartObserver->stop();
}

void AppModel::applicationActivated(const std::optional<platform::RunningApplication> &application)
{
    if (!application ||
        application->processIdentifier == m_desktop.workspace->ownProcessIdentifier() ||
        application->localizedName.value_or(QString()).isEmpty())
        return;
    assign(m_activeApp, *application->localizedName, &AppModel::activeAppChanged);
    assign(m_activeAppPID, application->processIdentifier, &AppModel::activeAppPIDChanged);
}

std::vector<int> AppModel::filteredPositions() const
{
    std::vector<int> positions = m_pool.containing(m_search.trimmed());
    if (const auto mask = ShortcutPool::maskOf(m_modifierFilters)) {
        std::erase_if(
            positions, [&](int position) { return (m_pool.modifiersAt(position) & mask) != mask; });
    }
    if (m_selection.kind() == SidebarSelection::Kind::favorites) {
        std::erase_if(
            positions, [&](int position) { return !m_favorites.contains(m_pool.at(position).id); });
    } else if (m_selection.kind() == SidebarSelection::Kind::category) {
        std::erase_if(positions, [&](int position) {
            return m_pool.at(position).category != m_selection.category();
        });
    }
    return positions;
}

FilteredShortcuts AppModel::filtered() const
{
    return {m_pool.records(), filteredPositions()};
}

void AppModel::toggleModifier(ModifierFilter filter)
{
    ModifierFilters filters = m_modifierFilters;
    if (filters.erase(filter) == 0)
        filters.insert(filter);
    setModifierFilters(filters);
}

QList<Shortcut> AppModel::contextual() const
{
    struct Ranked
    {
        const Shortcut *shortcut;
        qint64 uses;
    };
    const auto rank = [this](auto accepts) {
        std::vector<Ranked> ranked;
        for (const Shortcut &shortcut : m_pool.records()) {
            if (accepts(shortcut))
                ranked.push_back({&shortcut, m_usageCounts.value(shortcut.id, 0)});
        }
        return ranked;
    };
    auto ranked = rank([this](const Shortcut &s) { return s.apps.contains(m_activeApp); });
    if (ranked.empty())
        ranked = rank([](const Shortcut &) { return true; });
    std::stable_sort(ranked.begin(), ranked.end(), [](const Ranked &a, const Ranked &b) {
        return b.uses < a.uses;
    });
    if (ranked.size() > contextualLimit)
        ranked.resize(contextualLimit);

    QList<Shortcut> shortcuts;
    for (const Ranked &entry : ranked)
        shortcuts.append(*entry.shortcut);
    return shortcuts;
}

Shortcut AppModel::dailyShortcut() const
{
    // An invalid date has day 0.
    const int day = std::max(m_desktop.clock->now().date().dayOfYear(), 1);
    return m_pool.at((day - 1) % m_pool.size());
}

void AppModel::toggleFavorite(const Shortcut &shortcut)
{
    // By value: the caller's record may be one of ours.
    const QString id = shortcut.id;
    // What the person sees decides what is wanted, whatever another process has stored since.
    const bool isWanted = !m_favorites.contains(id);
    refresh();
    QSet<QString> favorites = m_favorites;
    if (isWanted)
        favorites.insert(id);
    else
        favorites.remove(id);
    assign(m_favorites, favorites, &AppModel::favoritesChanged);
    saveFavorites();
}

void AppModel::saveFavorites()
{
    QStringList ids = m_favorites.values();
    ids.sort(); // so that an unchanged set is stored as unchanged bytes
    m_desktop.preferences->setValue(favoritesKey, QVariantList(ids.begin(), ids.end()));
}

void AppModel::deleteCustom(const Shortcut &shortcut)
{
    // By value: the caller's record may be one of ours.
    const QString id = shortcut.id;
    refresh();
    QList<Shortcut> remaining = m_customShortcuts;
    remaining.removeIf([&](const Shortcut &custom) { return custom.id == id; });
    setCustomShortcuts(remaining);

    // The stored favourites may name the deleted record until they are next written; no record
    // has that id any more, so it does no harm.
    QSet<QString> favorites = m_favorites;
    favorites.remove(id);
    assign(m_favorites, favorites, &AppModel::favoritesChanged);

    saveCustomShortcuts();
}

void AppModel::deleteImported(const ShortcutOrigin &origin)
{
    if (origin.kind == ShortcutOrigin::Kind::person)
        return;
    refresh();
    ImportedDeletion deletion{origin, m_customShortcuts, {}, {}};
    QList<Shortcut> remaining;
    for (const Shortcut &shortcut : m_customShortcuts) {
        if (ShortcutOrigin::of(shortcut) == origin)
            deletion.ids.insert(shortcut.id);
        else
            remaining.append(shortcut);
    }
    if (deletion.ids.isEmpty())
        return;
    deletion.count = m_customShortcuts.size() - remaining.size();
    deletion.favorites = m_favorites & deletion.ids;
    setCustomShortcuts(remaining);
    // As when single ones are deleted, the stored favourites stay.
    assign(m_favorites, m_favorites - deletion.ids, &AppModel::favoritesChanged);
    saveCustomShortcuts();
    m_importedDeletion = std::move(deletion);
    Q_EMIT importedDeletionChanged();
}

void AppModel::undoImportedDeletion()
{
    if (!m_importedDeletion)
        return;
    refresh();
    const ImportedDeletion deletion = *std::exchange(m_importedDeletion, std::nullopt);
    QSet<QString> known;
    for (const Shortcut &shortcut : m_customShortcuts)
        known.insert(shortcut.id);
    // Through the old list, beside which what is left of it keeps its order; what has come since
    // follows. What was imported again meanwhile stays where that put it.
    QList<Shortcut> restored;
    auto next = m_customShortcuts.cbegin();
    for (const Shortcut &old : deletion.before) {
        if (deletion.ids.contains(old.id)) {
            if (!known.contains(old.id))
                restored.append(old);
        } else if (next != m_customShortcuts.cend() && next->id == old.id) {
            restored.append(*next++);
        }
    }
    std::copy(next, m_customShortcuts.cend(), std::back_inserter(restored));
    setCustomShortcuts(restored);
    saveCustomShortcuts();
    if (!deletion.favorites.isEmpty()) {
        assign(m_favorites, m_favorites + deletion.favorites, &AppModel::favoritesChanged);
        // They may have been written without these since.
        saveFavorites();
    }
    Q_EMIT importedDeletionChanged();
}

void AppModel::importFrontmostMenu()
{
    if (m_isImporting)
        return;
    assign(m_isImporting, true, &AppModel::isImportingChanged);
    if (!m_activeAppPID) {
        if (m_desktop.systemShortcuts->availability().available)
            readSystemShortcuts();
        else
            finishImport(MenuImportError::application);
        return;
    }

    // The other application may take long to answer, so it is asked aside. The tasks end before
    // this object does.
    const auto outcome = std::make_shared<std::promise<MenuShortcutImporter::Result>>();
    const bool hasBegun = m_imports.start(
        [this, outcome, accessibility = m_desktop.accessibility, pid = *m_activeAppPID,
         appName = m_activeApp,
         ownPid = m_desktop.workspace->ownProcessIdentifier()](const std::stop_token &stop) {
            outcome->set_value(MenuShortcutImporter::importFromApplication(
                *accessibility, ownPid, pid, appName, stop));
            QMetaObject::invokeMethod(
                this, [this, outcome] { finishImport(outcome->get_future().get()); },
                Qt::QueuedConnection);
        });
    // A system that is short of threads now may have one when the person tries again.
    if (!hasBegun)
        finishImport(MenuImportError::application);
}

void AppModel::finishImport(const MenuShortcutImporter::Result &result)
{
    if (const auto *imported = std::get_if<QList<Shortcut>>(&result)) {
        const qsizetype added = addImported(*imported);
        const QString message = added > 0 ? u"Importováno "_s + QString::number(added) +
                                                u" zkratek z aplikace "_s + m_activeApp + u'.'
                                          : u"V menu nebyly nalezeny žádné nové zkratky."_s;
        assign(m_importMessage, message, &AppModel::importMessageChanged);
    } else {
        const auto error = std::get<MenuImportError>(result);
        assign(m_importMessage, localizedDescription(error), &AppModel::importMessageChanged);
    }
    assign(m_isImporting, false, &AppModel::isImportingChanged);
}

void AppModel::refreshSystemKeys()
{
    // An import under way reads the same, and brings the keys along.
    if (m_libraryChoice == LibraryChoice::mac || m_isImporting ||
        !m_desktop.systemShortcuts->availability().available)
        return;
    // What is being read may be from before the change that the person comes from.
    m_readsSystemKeysAgain = m_isReadingSystemKeys;
    if (m_isReadingSystemKeys)
        return;
    m_isReadingSystemKeys = true;
    m_desktop.systemShortcuts->read(
        [model = QPointer<AppModel>(this)](const platform::SystemShortcuts::Result &result) {
            if (!model)
                return;
            model->m_isReadingSystemKeys = false;
            if (result)
                model->takeSystemKeys(*result);
            if (std::exchange(model->m_readsSystemKeysAgain, false))
                model->refreshSystemKeys();
        });
}

void AppModel::takeSystemKeys(const platform::SystemShortcutSettings &settings)
{
    m_systemKeys.clear();
    for (const platform::SystemShortcut &shortcut : settings.shortcuts)
        m_systemKeys.insert(
            shortcut.actionId, QList<QStringList>{shortcut.keys} + shortcut.otherKeys);
    m_actionsWithoutKeys =
        QSet<QString>(settings.withoutKeys.cbegin(), settings.withoutKeys.cend());
    updateLibrary();
}

void AppModel::importSystemShortcuts()
{
    if (m_isImporting)
        return;
    assign(m_isImporting, true, &AppModel::isImportingChanged);
    readSystemShortcuts();
}

void AppModel::readSystemShortcuts()
{
    // It takes the place of a question under way.
    m_isReadingSystemKeys = false;
    m_readsSystemKeysAgain = false;
    m_desktop.systemShortcuts->read(
        [model = QPointer<AppModel>(this)](const platform::SystemShortcuts::Result &result) {
            if (model)
                model->finishSystemImport(result);
        });
}

void AppModel::finishSystemImport(const platform::SystemShortcuts::Result &result)
{
    if (!result) {
        finishImport(MenuImportError::menu);
        return;
    }
    refresh();
    takeSystemKeys(*result);
    const QList<platform::SystemShortcut> shortcuts = outsideLibrary(result->shortcuts);
    const qsizetype changed = takeChangedKeys(shortcuts);
    const qsizetype added = addImported(recordsOf(shortcuts));
    assign(m_importMessage, systemImportMessage(changed + added), &AppModel::importMessageChanged);
    assign(m_isImporting, false, &AppModel::isImportingChanged);
}

QList<platform::SystemShortcut>
AppModel::outsideLibrary(const QList<platform::SystemShortcut> &shortcuts) const
{
    const QSet<QString> actions = actionsOfLibrary();
    QList<platform::SystemShortcut> outside = shortcuts;
    outside.removeIf([&](const platform::SystemShortcut &shortcut) {
        return actions.contains(shortcut.actionId);
    });
    return outside;
}

qsizetype AppModel::takeChangedKeys(const QList<platform::SystemShortcut> &shortcuts)
{
    QList<Shortcut> custom = m_customShortcuts;
    const auto changes = takeKeys(custom, shortcuts);
    if (changes.isEmpty())
        return 0;
    QSet<QString> favorites = m_favorites;
    for (const auto &[before, now] : changes) {
        if (favorites.contains(before.id))
            favorites.insert(now.id);
    }
    setCustomShortcuts(custom);
    saveCustomShortcuts();
    if (favorites != m_favorites) {
        assign(m_favorites, favorites, &AppModel::favoritesChanged);
        saveFavorites();
    }
    return changes.size();
}

qsizetype AppModel::addImported(const QList<Shortcut> &imported)
{
    refresh();
    QSet<QString> known;
    known.reserve(m_library.size() + m_customShortcuts.size());
    for (const QList<Shortcut> *list : {&m_library, &m_customShortcuts}) {
        for (const Shortcut &shortcut : *list)
            known.insert(importSignature(shortcut));
    }
    QList<Shortcut> shortcuts = m_customShortcuts;
    std::copy_if(
        imported.begin(), imported.end(), std::back_inserter(shortcuts),
        [&](const Shortcut &shortcut) { return !known.contains(importSignature(shortcut)); });
    const qsizetype added = shortcuts.size() - m_customShortcuts.size();
    setCustomShortcuts(shortcuts);
    saveCustomShortcuts();
    return added;
}

const Shortcut *AppModel::shortcutNamed(const QString &menuTitle) const
{
    const QString named = m_folding.withoutCaseAndDiacritics(menuTitle);
    // Nothing is named by an empty text, though every text contains one.
    if (named.isEmpty())
        return nullptr;
    for (const Shortcut &shortcut : m_pool.records()) {
        const QString title = m_folding.withoutCaseAndDiacritics(shortcut.title);
        if (!title.isEmpty() && (named.contains(title) || title.contains(named)))
            return &shortcut;
    }
    return nullptr;
}

void AppModel::recordMouseAction(const QString &title)
{
    if (!m_smartSuggestionsEnabled)
        return;
    refresh();
    const Shortcut *named = shortcutNamed(title);
    if (!named)
        return;
    // A copy: observers of the count may change the pool.
    const Shortcut shortcut = *named;

    QHash<QString, qint64> counts = m_usageCounts;
    qint64 &uses = counts[shortcut.id];
    if (uses < std::numeric_limits<qint64>::max())
        ++uses;
    const qint64 usesNow = uses;
    QVariantMap stored;
    for (auto entry = counts.constBegin(); entry != counts.constEnd(); ++entry)
        stored.insert(entry.key(), entry.value());
    assign(m_usageCounts, counts, &AppModel::usageCountsChanged);
    m_desktop.preferences->setValue(usageCountsKey, stored);

    if (!m_learningModeEnabled && usesNow < usesBeforeSuggestion)
        return;
    assign(m_latestSuggestion, shortcut, &AppModel::latestSuggestionChanged);
    assign(
        m_latestSuggestionReason,
        u"Položku „"_s + title + u"“ jste použili myší. Příště to zkuste rychleji klávesami."_s,
        &AppModel::latestSuggestionReasonChanged);
    Q_EMIT suggested();
}

KeyNaming AppModel::practiceNaming(const Shortcut &task) const
{
    return m_libraryChoice == LibraryChoice::mac && ShortcutLibrary::all().contains(task)
               ? KeyNaming::literal
               : KeyNaming::all;
}

bool AppModel::canBePractised(const Shortcut &shortcut) const
{
    return KeyNames::canBePressed(shortcut.keys, practiceNaming(shortcut));
}

void AppModel::requestPractice(const Shortcut &shortcut)
{
    m_practiceRequest = shortcut;
    Q_EMIT practiceRequested();
    setPracticeIndex(0);
    setPracticeScore(0);
    setSelection(SidebarSelection::Kind::practice);
}

std::optional<Shortcut> AppModel::takePracticeRequest()
{
    return std::exchange(m_practiceRequest, std::nullopt);
}

} // namespace hmatnik
