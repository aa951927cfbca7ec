#pragma once

#include "platform/Preferences.h"

#include <QObject>
#include <QtQmlIntegration>

#include <memory>

namespace hmatnik {

/// Tells the person that changes could not be stored: once, from the first that failed until all
/// are on the disk, whichever part of the program made them, and also if no window was open then.
class SaveNoticeState final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(bool shown READ isShown NOTIFY changed)
    Q_PROPERTY(QString headline READ headline CONSTANT)
    Q_PROPERTY(QString detail READ detail NOTIFY changed)

public:
    /// @param preferences never null.
    explicit SaveNoticeState(
        std::shared_ptr<platform::Preferences> preferences, QObject *parent = nullptr);

    /// Whether there is something to tell that the person has not put away.
    bool isShown() const;
    static QString headline();
    /// What may be the reason, and what becomes of the changes.
    QString detail() const;

    /// Tries to store everything once more.
    Q_INVOKABLE void tryAgain();
    /// Puts the notice away until changes have been stored and then fail again.
    Q_INVOKABLE void hide();

Q_SIGNALS:
    void changed();

private:
    void problemChanged();

    const std::shared_ptr<platform::Preferences> m_preferences;
    platform::Subscription m_onProblem;
    /// It was tried again, without success.
    bool m_hasFailedAgain = false;
    bool m_isHidden = false;
};

} // namespace hmatnik
