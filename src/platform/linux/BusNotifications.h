#pragma once

#include "platform/Notifications.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <optional>

namespace hmatnik::platform {

/// The desktop's notification service (org.freedesktop.Notifications). Nothing of it is looked up
/// before the first message. Main thread only.
///
/// Most services keep silent by themselves while the person doesn't want to be disturbed. Those
/// that would show the message afterwards are asked before: KDE's ("Inhibited") and dunst
/// ("paused").
class BusNotifications final : public QObject, public Notifications
{
    Q_OBJECT

public:
    /// How long the service may take for each answer; a message that is shown much later would
    /// speak of something long past.
    static constexpr std::chrono::milliseconds answerTimeout{5000};
    /// How long the bus may take at the end to accept that the message is to go.
    static constexpr std::chrono::milliseconds farewellTimeout{200};

    explicit BusNotifications(
        const QDBusConnection &bus = QDBusConnection::sessionBus(),
        std::chrono::milliseconds timeout = answerTimeout);
    BusNotifications(const BusNotifications &) = delete;
    BusNotifications &operator=(const BusNotifications &) = delete;
    ~BusNotifications() override;

    Availability availability() const override;
    void show(const Notification &notification, ActionHandler onAction) override;

private:
    /// What the running service has said of itself.
    struct Server
    {
        QStringList capabilities;
        bool isGnomeShell = false;
        /// Its unique name on the bus, which its signals bear.
        QString owner;
    };
    struct Message
    {
        Notification notification;
        ActionHandler onAction;
    };
    using AnswerHandler = std::function<void(const QDBusMessage &answer)>;

    Q_SLOT void takeAction(uint id, const QString &action, const QDBusMessage &signal);
    Q_SLOT void takeToken(uint id, const QString &token, const QDBusMessage &signal);
    Q_SLOT void takeEnd(uint id, uint reason, const QDBusMessage &signal);

    void listen();
    void forgetServer();
    void ask(const QDBusMessage &question, AnswerHandler onAnswer);
    void askServer();
    void askName(const QStringList &capabilities);
    void askOwner(const Server &server);
    /// Asks the property of that number, and so on, whether the person wants silence.
    void askForSilence(std::size_t property);
    void send();
    /// Nobody is there to show anything, or nobody wants to see it.
    void giveUp();
    /// Goes on with the next message, if there is one.
    void finish();
    /// Has the service close the message, if it is still shown; doesn't wait for it.
    void takeAway();
    bool isOurs(uint id, const QDBusMessage &signal) const;

    QDBusConnection m_bus;
    std::chrono::milliseconds m_timeout;
    QDBusServiceWatcher m_watcher;
    bool m_isListening = false;
    /// Whether the bus was asked to start a service; one that fails is not started time and again.
    bool m_isStartTried = false;
    std::optional<Server> m_server;
    bool m_isBusy = false;
    /// The message that is to be shown next; the newest only.
    std::optional<Message> m_next;

    // The message that is shown.
    uint m_id = 0;
    /// As far as the service has told.
    bool m_isOnScreen = false;
    QString m_owner;
    Message m_shown;
    QString m_token;
};

} // namespace hmatnik::platform
