#include "platform/linux/BusNotifications.h"

#include <QDBusError>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QDBusVariant>
#include <QVariantMap>

#include <algorithm>
#include <array>
#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.Notifications"_s;
const QString path = u"/org/freedesktop/Notifications"_s;

constexpr qsizetype longestToken = 1000;
constexpr int serversOwnTimeout = -1;
constexpr uchar lowUrgency = 0;
constexpr uchar normalUrgency = 1;

struct Property
{
    QString interface;
    QString name;
};

/// True while messages would be kept for later.
const std::array<Property, 2> silenceProperties{
    {{service, u"Inhibited"_s}, {u"org.dunstproject.cmd0"_s, u"paused"_s}}};

QDBusMessage method(const QString &name)
{
    return QDBusMessage::createMethodCall(service, path, service, name);
}

QDBusMessage busMethod(const QString &name)
{
    return QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, name);
}

} // namespace

BusNotifications::BusNotifications(const QDBusConnection &bus, std::chrono::milliseconds timeout)
    : m_bus(bus)
    , m_timeout(timeout)
{
}

BusNotifications::~BusNotifications()
{
    if (!m_isOnScreen)
        return;
    takeAway();
    // The toolkit sends in a thread of its own, which ends with the process, whatever it still has.
    // What it sends is in order: when the bus has answered this, which no service has a part in, it
    // has the message before as well.
    m_bus.call(busMethod(u"GetId"_s), QDBus::Block, static_cast<int>(farewellTimeout.count()));
}

Availability BusNotifications::availability() const
{
    if (m_bus.isConnected())
        return Availability::yes();
    return Availability::no(u"Bez sběrnice D-Bus nemá plocha kde oznámení zobrazit."_s);
}

void BusNotifications::show(const Notification &notification, ActionHandler onAction)
{
    if (!m_bus.isConnected())
        return;
    m_next = Message{notification, std::move(onAction)};
    if (m_isBusy)
        return;
    m_isBusy = true;
    listen();
    if (m_server)
        askForSilence(0);
    else
        askServer();
}

void BusNotifications::listen()
{
    if (std::exchange(m_isListening, true))
        return;
    m_watcher.setConnection(m_bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_watcher.addWatchedService(service);
    connect(
        &m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        &BusNotifications::forgetServer);
    // From anybody, and the sender is compared later: to look up whose name the service's is, the
    // toolkit would wait for the bus.
    m_bus.connect(
        {}, path, service, u"ActionInvoked"_s, this, SLOT(takeAction(uint, QString, QDBusMessage)));
    m_bus.connect(
        {}, path, service, u"ActivationToken"_s, this,
        SLOT(takeToken(uint, QString, QDBusMessage)));
    m_bus.connect(
        {}, path, service, u"NotificationClosed"_s, this, SLOT(takeEnd(uint, uint, QDBusMessage)));
}

void BusNotifications::forgetServer()
{
    m_server.reset();
    m_id = 0;
    m_isOnScreen = false;
    m_owner.clear();
    m_shown = {};
    m_token.clear();
}

void BusNotifications::ask(const QDBusMessage &question, AnswerHandler onAnswer)
{
    auto *answer = new QDBusPendingCallWatcher(
        m_bus.asyncCall(question, static_cast<int>(m_timeout.count())), this);
    connect(
        answer, &QDBusPendingCallWatcher::finished, this, [answer, onAnswer = std::move(onAnswer)] {
            answer->deleteLater();
            onAnswer(answer->reply());
        });
}

void BusNotifications::askServer()
{
    QDBusMessage question = method(u"GetCapabilities"_s);
    question.setAutoStartService(!std::exchange(m_isStartTried, true));
    ask(question, [this](const QDBusMessage &answer) {
        if (answer.type() != QDBusMessage::ReplyMessage) {
            giveUp();
            return;
        }
        // One that answers nonsense can do nothing beyond the message itself.
        askName(QDBusReply<QStringList>(answer).value());
    });
}

void BusNotifications::askName(const QStringList &capabilities)
{
    QDBusMessage question = method(u"GetServerInformation"_s);
    question.setAutoStartService(false);
    ask(question, [this, capabilities](const QDBusMessage &answer) {
        const QString name = answer.type() == QDBusMessage::ReplyMessage
                                 ? answer.arguments().value(0).toString()
                                 : QString();
        askOwner({capabilities, name == "gnome-shell"_L1, {}});
    });
}

void BusNotifications::askOwner(const Server &server)
{
    // Not every version of the toolkit tells of an answer who gave it.
    QDBusMessage question = busMethod(u"GetNameOwner"_s);
    question.setArguments({service});
    ask(question, [this, server](const QDBusMessage &answer) {
        m_server = server;
        m_server->owner = QDBusReply<QString>(answer).value();
        askForSilence(0);
    });
}

void BusNotifications::askForSilence(std::size_t property)
{
    if (property == silenceProperties.size()) {
        send();
        return;
    }
    QDBusMessage question = QDBusMessage::createMethodCall(
        service, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question.setArguments(
        {silenceProperties[property].interface, silenceProperties[property].name});
    question.setAutoStartService(false);
    ask(question, [this, property](const QDBusMessage &answer) {
        const QVariant value = QDBusReply<QDBusVariant>(answer).value().variant();
        const bool isSilence = value.typeId() == QMetaType::Bool && value.toBool();
        // A service without the property answers with an error; one that says nothing is stuck.
        if (isSilence || QDBusError(answer).type() == QDBusError::NoReply) {
            giveUp();
        } else {
            askForSilence(property + 1);
        }
    });
}

void BusNotifications::send()
{
    // The service was restarted meanwhile: it can do other things, and has other numbers.
    if (!m_server) {
        askServer();
        return;
    }
    const Message message = *std::exchange(m_next, std::nullopt);
    const Notification &notification = message.notification;
    const auto can = [this](const QString &capability) {
        return m_server->capabilities.contains(capability);
    };
    QStringList actions;
    if (can(u"actions"_s)) {
        for (const Notification::Action &action : notification.actions)
            actions << action.id << action.title;
    }
    const QVariantMap hints{
        // GNOME Shell shows nothing of low urgency on the screen, and files away only what is not
        // transient: nobody would see the message.
        {u"urgency"_s, QVariant::fromValue(m_server->isGnomeShell ? normalUrgency : lowUrgency)},
        {u"transient"_s, true},
        {u"suppress-sound"_s, true},
        {u"desktop-entry"_s, u"cz.hmatnik.Hmatnik"_s}};
    QDBusMessage question = method(u"Notify"_s);
    question.setArguments(
        {u"Hmatník"_s, m_id, u"cz.hmatnik.Hmatnik"_s, notification.title,
         can(u"body-markup"_s) ? notification.body.toHtmlEscaped() : notification.body, actions,
         hints, serversOwnTimeout});
    question.setAutoStartService(false);
    ask(question, [this, message](const QDBusMessage &answer) {
        // Nothing that an action could be about, if the number makes no sense.
        m_id = QDBusReply<uint>(answer).value();
        m_isOnScreen = m_id != 0;
        m_owner = m_server ? m_server->owner : QString();
        m_shown = message;
        m_token.clear();
        finish();
    });
}

void BusNotifications::giveUp()
{
    m_next.reset();
    finish();
}

void BusNotifications::finish()
{
    m_isBusy = false;
    if (auto next = std::exchange(m_next, std::nullopt))
        show(next->notification, std::move(next->onAction));
}

bool BusNotifications::isOurs(uint id, const QDBusMessage &signal) const
{
    return id != 0 && id == m_id && signal.service() == m_owner;
}

void BusNotifications::takeAction(uint id, const QString &action, const QDBusMessage &signal)
{
    if (!isOurs(id, signal))
        return;
    const QList<Notification::Action> &actions = m_shown.notification.actions;
    const bool isKnown = std::any_of(
        actions.begin(), actions.end(), [&](const auto &offered) { return offered.id == action; });
    if (!isKnown || !m_shown.onAction)
        return;
    const ActionHandler onAction = std::exchange(m_shown.onAction, {});
    onAction(action, std::exchange(m_token, {}));
    // Not every service closes a message that was answered, and its buttons would do nothing more.
    takeAway();
}

void BusNotifications::takeAway()
{
    if (!std::exchange(m_isOnScreen, false))
        return;
    QDBusMessage order = method(u"CloseNotification"_s);
    order.setArguments({m_id});
    order.setAutoStartService(false);
    m_bus.send(order);
}

void BusNotifications::takeToken(uint id, const QString &token, const QDBusMessage &signal)
{
    if (isOurs(id, signal) && token.size() <= longestToken)
        m_token = token;
}

void BusNotifications::takeEnd(uint id, uint, const QDBusMessage &signal)
{
    if (isOurs(id, signal))
        m_isOnScreen = false;
}

} // namespace hmatnik::platform
