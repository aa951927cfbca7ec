#include "platform/linux/LinuxTrayHosts.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QDBusVariant>

#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

// The names that desktops agreed on; the draft standard's own prefix is used by nobody.
const QString service = u"org.kde.StatusNotifierWatcher"_s;
const QString path = u"/StatusNotifierWatcher"_s;
const QString hostProperty = u"IsStatusNotifierHostRegistered"_s;

bool isAbsence(const QDBusError &error)
{
    return error.type() == QDBusError::ServiceUnknown || error.type() == QDBusError::NoServer ||
           error.type() == QDBusError::Disconnected ||
           error.name() == u"org.freedesktop.DBus.Error.NameHasNoOwner"_s;
}

} // namespace

LinuxTrayHosts::LinuxTrayHosts(
    std::shared_ptr<X11Connection> connection, const QDBusConnection &session)
    : m_connection(std::move(connection))
    , m_session(session)
{
    if (m_connection) {
        m_connection->selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        m_events = m_connection->onEvent([this](const xcb_generic_event_t &event) { take(event); });
    }
    if (!m_session.isConnected())
        return;
    for (const QString &change :
         {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s})
        m_session.connect(service, path, service, change, this, SLOT(askWatcher()));
    m_owner.setConnection(m_session);
    m_owner.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_owner.addWatchedService(service);
    connect(&m_owner, &QDBusServiceWatcher::serviceOwnerChanged, this, &LinuxTrayHosts::askWatcher);
    askWatcher();
}

bool LinuxTrayHosts::isPresent()
{
    if (m_watcher == Watcher::Silent)
        return false;
    return m_watcher == Watcher::WithHost || hasManager();
}

Subscription LinuxTrayHosts::onArrival(std::function<void()> handler)
{
    return m_handlers.add(std::move(handler));
}

void LinuxTrayHosts::askWatcher()
{
    m_watcher = Watcher::Silent;
    QDBusMessage question = QDBusMessage::createMethodCall(
        service, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question.setArguments({service, hostProperty});
    // Nobody is to be started for our sake.
    question.setAutoStartService(false);
    auto *answer = new QDBusPendingCallWatcher(m_session.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            setWatcher(reply.value().variant().toBool() ? Watcher::WithHost : Watcher::WithoutHost);
        else if (isAbsence(reply.error()))
            setWatcher(Watcher::Absent);
    });
}

void LinuxTrayHosts::setWatcher(Watcher watcher)
{
    m_watcher = watcher;
    tell();
}

bool LinuxTrayHosts::hasManager()
{
    if (!m_connection)
        return false;
    const auto answer = m_connection->reply(
        xcb_get_selection_owner_reply,
        xcb_get_selection_owner(m_connection->raw(), m_connection->trayAtom()));
    return answer && answer->owner != XCB_WINDOW_NONE;
}

/// A tray manager that arrives sends MANAGER to the root window (ICCCM 2.8).
void LinuxTrayHosts::take(const xcb_generic_event_t &event)
{
    if ((event.response_type & 0x7f) != XCB_CLIENT_MESSAGE)
        return;
    const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event);
    if (message.type == m_connection->atom("MANAGER") && message.format == 32 &&
        message.data.data32[1] == m_connection->trayAtom())
        tell();
}

void LinuxTrayHosts::tell()
{
    if (isPresent())
        m_handlers.call();
}

} // namespace hmatnik::platform
