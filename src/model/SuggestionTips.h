#pragma once

#include "model/KeyNames.h"
#include "model/Shortcut.h"
#include "platform/Notifications.h"

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QString>

#include <functional>

namespace hmatnik {

class AppModel;

/// Shows each suggestion as a message of the desktop: the shortcut's title, the sentence, the keys,
/// and two buttons, "Procvičit", unless no press would answer the quiz, and "Nezobrazovat".
///
/// Silent for ten minutes about a shortcut it has just told of, while the quiz or the floating
/// panel is open, and once the person has turned the messages off. Main thread only.
class SuggestionTips : public QObject
{
    Q_OBJECT

public:
    /// What it asks of the program around it.
    struct Shell
    {
        /// Whether the main window is on the screen.
        std::function<bool()> isMainWindowShown;
        /// Whether the floating panel of tips is on the screen.
        std::function<bool()> isOverlayShown;
        /// Brings the main window to the front; the token is the desktop's, empty if it gave none.
        std::function<void(const QString &activationToken)> showMainWindow;
    };

    /// Follows the model from now on, which must outlive it.
    SuggestionTips(AppModel &model, Shell shell);

    /// The message about a shortcut. Texts that come from elsewhere are bounded, and control
    /// characters in them are spaces.
    /// @param style whose names the keys have
    /// @param canBePractised whether it offers the quiz
    static platform::Notification
    message(const Shortcut &shortcut, const QString &reason, KeyStyle style, bool canBePractised);

private:
    void show();
    bool isInTheWay() const;
    /// Whether ten minutes have passed since the shortcut's last message; they begin anew if so.
    bool isDue(const QString &id);

    AppModel &m_model;
    Shell m_shell;
    /// When each shortcut was shown, as long as that is less than ten minutes ago.
    QHash<QString, QDateTime> m_shown;
};

} // namespace hmatnik
