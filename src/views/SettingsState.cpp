#include "views/SettingsState.h"

namespace hmatnik {

using namespace Qt::StringLiterals;

SettingsState::SettingsState(QObject *parent)
    : ScreenState(parent)
{
}

void SettingsState::follow(AppModel &model)
{
    model.refreshLaunchAtLogin();
    m_customShortcuts.setKeyStyle(model.keyStyle());
    m_customShortcuts.setShortcuts(model.customShortcuts());
    connect(&model, &AppModel::launchAtLoginChanged, this, &SettingsState::changed);
    connect(&model, &AppModel::smartSuggestionsEnabledChanged, this, &SettingsState::changed);
    connect(&model, &AppModel::learningModeEnabledChanged, this, &SettingsState::changed);
    connect(&model, &AppModel::tipsEnabledChanged, this, &SettingsState::changed);
    connect(&model, &AppModel::importedDeletionChanged, this, &SettingsState::changed);
    connect(&model, &AppModel::customShortcutsChanged, this, [this, &model] {
        m_customShortcuts.setShortcuts(model.customShortcuts());
    });
    connect(&model, &AppModel::keyStyleChanged, this, [this, &model] {
        m_customShortcuts.setKeyStyle(model.keyStyle());
        Q_EMIT changed();
    });
    connect(&model, &AppModel::libraryChanged, this, &SettingsState::changed);
}

bool SettingsState::launchAtLogin() const
{
    return model() && model()->launchAtLogin();
}

void SettingsState::setLaunchAtLogin(bool enabled)
{
    if (!model())
        return;
    if (const auto error = model()->setLaunchAtLogin(enabled)) {
        m_errorMessage = error;
        Q_EMIT errorMessageChanged();
    }
}

bool SettingsState::smartSuggestions() const
{
    return model() && model()->smartSuggestionsEnabled();
}

void SettingsState::setSmartSuggestions(bool enabled)
{
    if (model())
        model()->setSmartSuggestions(enabled);
}

bool SettingsState::learningMode() const
{
    return model() && model()->learningModeEnabled();
}

void SettingsState::setLearningMode(bool enabled)
{
    if (model())
        model()->setLearningMode(enabled);
}

bool SettingsState::tips() const
{
    return model() && model()->tipsEnabled();
}

void SettingsState::setTips(bool enabled)
{
    if (model())
        model()->setTipsEnabled(enabled);
}

bool SettingsState::isTipsSwitchShown() const
{
    return model() && model()->isTipsChoiceMade();
}

bool SettingsState::hasKeyboardChoices() const
{
    return model() && !model()->desktop().kind.hasMacKeyboard;
}

QStringList SettingsState::keyStyles()
{
    return {u"Jako na Macu (⌘ ⌥ ⇧ ⌃)"_s, u"Jako na PC (Super, Alt, Shift, Ctrl)"_s};
}

QStringList SettingsState::spokenKeyStyles()
{
    return {
        u"Jako na Macu (Command, Option, Shift, Control)"_s,
        u"Jako na PC (Super, Alt, Shift, Control)"_s};
}

int SettingsState::keyStyle() const
{
    return model() && model()->keyStyle() == KeyStyle::pc ? 1 : 0;
}

void SettingsState::setKeyStyle(int choice)
{
    if (model() && choice >= 0 && choice < keyStyles().size())
        model()->setKeyStyle(choice == 0 ? KeyStyle::mac : KeyStyle::pc);
}

QStringList SettingsState::libraries()
{
    return {u"Zkratky Macu"_s, u"Zkratky této plochy"_s};
}

int SettingsState::library() const
{
    return model() && model()->libraryChoice() == LibraryChoice::desktop ? 1 : 0;
}

void SettingsState::setLibrary(int choice)
{
    if (model() && choice >= 0 && choice < libraries().size())
        model()->setLibraryChoice(choice == 0 ? LibraryChoice::mac : LibraryChoice::desktop);
}

void SettingsState::requestAccessibility()
{
    if (model())
        model()->desktop().accessibility->requestTrust();
}

void SettingsState::deleteCustom(int row)
{
    if (!model() || row < 0 || row >= m_customShortcuts.count())
        return;
    // A copy: the row goes while the model deletes.
    const Shortcut shortcut = m_customShortcuts.at(row);
    model()->deleteCustom(shortcut);
}

void SettingsState::deleteImported(int row)
{
    if (model())
        model()->deleteImported(m_customShortcuts.origin(row));
}

QString SettingsState::deletionText() const
{
    if (!model() || !model()->importedDeletion())
        return {};
    const AppModel::ImportedDeletion &deletion = *model()->importedDeletion();
    if (deletion.origin.kind == ShortcutOrigin::Kind::desktop)
        return u"Smazány zkratky plochy (%1)"_s.arg(deletion.count);
    return u"Smazány zkratky aplikace %1 (%2)"_s.arg(deletion.origin.appName).arg(deletion.count);
}

void SettingsState::undoDeletion()
{
    if (model())
        model()->undoImportedDeletion();
}

QString SettingsState::alertMessage() const
{
    if (!m_errorMessage)
        return {};
    return m_errorMessage->isEmpty() ? u"Neznámá chyba"_s : *m_errorMessage;
}

void SettingsState::closeAlert()
{
    if (!m_errorMessage)
        return;
    m_errorMessage.reset();
    Q_EMIT errorMessageChanged();
}

} // namespace hmatnik
