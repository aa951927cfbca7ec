#pragma once

#include "views/CustomShortcutRows.h"
#include "views/ScreenState.h"

#include <optional>

namespace hmatnik {

/// The settings sheet: its switches, its alert and the list of own shortcuts. The desktop is asked
/// afresh whenever the sheet opens, because people change login items elsewhere too.
class SettingsState : public hmatnik::ScreenState
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin NOTIFY changed)
    Q_PROPERTY(bool smartSuggestions READ smartSuggestions NOTIFY changed)
    Q_PROPERTY(bool learningMode READ learningMode NOTIFY changed)
    Q_PROPERTY(bool tips READ tips NOTIFY changed)
    Q_PROPERTY(bool tipsSwitchShown READ isTipsSwitchShown NOTIFY changed)
    Q_PROPERTY(bool hasKeyboardChoices READ hasKeyboardChoices NOTIFY changed)
    Q_PROPERTY(QStringList keyStyles READ keyStyles CONSTANT)
    Q_PROPERTY(QStringList spokenKeyStyles READ spokenKeyStyles CONSTANT)
    Q_PROPERTY(int keyStyle READ keyStyle NOTIFY changed)
    Q_PROPERTY(QStringList libraries READ libraries CONSTANT)
    Q_PROPERTY(int library READ library NOTIFY changed)
    Q_PROPERTY(hmatnik::CustomShortcutRows *customShortcuts READ customShortcuts CONSTANT)
    Q_PROPERTY(QString deletionText READ deletionText NOTIFY changed)
    Q_PROPERTY(bool alertShown READ isAlertShown NOTIFY errorMessageChanged)
    Q_PROPERTY(QString alertMessage READ alertMessage NOTIFY errorMessageChanged)

public:
    explicit SettingsState(QObject *parent = nullptr);

    bool launchAtLogin() const;
    /// Shows the alert if the desktop refuses.
    Q_INVOKABLE void setLaunchAtLogin(bool enabled);
    bool smartSuggestions() const;
    Q_INVOKABLE void setSmartSuggestions(bool enabled);
    bool learningMode() const;
    Q_INVOKABLE void setLearningMode(bool enabled);
    bool tips() const;
    Q_INVOKABLE void setTips(bool enabled);
    /// Whether there is a switch for the desktop's messages: once the person has turned them off.
    bool isTipsSwitchShown() const;

    /// Whether the group of choices about the keyboard is there: where keys have other names than
    /// on a Mac.
    bool hasKeyboardChoices() const;
    /// The choices of names that keys can have, in words.
    static QStringList keyStyles();
    /// The same without glyphs, for screen readers.
    static QStringList spokenKeyStyles();
    /// Place of the one in force.
    int keyStyle() const;
    /// Places out of range are ignored.
    Q_INVOKABLE void setKeyStyle(int choice);

    /// The choices of libraries, in words.
    static QStringList libraries();
    /// Place of the one in force.
    int library() const;
    /// Places out of range are ignored.
    Q_INVOKABLE void setLibrary(int choice);

    /// Asks the desktop for the permission to look into other programs' menus. Its answer, now or
    /// later, is not told here.
    Q_INVOKABLE void requestAccessibility();

    CustomShortcutRows *customShortcuts() { return &m_customShortcuts; }
    /// Deletes the shortcut of a row at once; rows out of range are ignored.
    Q_INVOKABLE void deleteCustom(int row);

    /// Deletes all that were imported from where the row was; rows out of range and those that were
    /// added by hand are ignored.
    Q_INVOKABLE void deleteImported(int row);
    /// Tells what undoDeletion() would bring back; empty if there is nothing.
    QString deletionText() const;
    Q_INVOKABLE void undoDeletion();

    /// What the last change failed with; none unless the alert is shown.
    const std::optional<QString> &errorMessage() const { return m_errorMessage; }
    bool isAlertShown() const { return m_errorMessage.has_value(); }
    /// The text under the alert's title.
    QString alertMessage() const;
    Q_INVOKABLE void closeAlert();

Q_SIGNALS:
    void errorMessageChanged();

protected:
    void follow(AppModel &model) override;

private:
    CustomShortcutRows m_customShortcuts;
    std::optional<QString> m_errorMessage;
};

} // namespace hmatnik
