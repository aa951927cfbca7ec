#pragma once

#include "platform/TrayHosts.h"
#include "platform/linux/HandlerList.h"
#include "platform/linux/X11Connection.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>

namespace hmatnik::platform {

/// Finds the two kinds of tray: StatusNotifierItem, whose watcher is on the session bus, and
/// XEmbed, whose manager owns an X selection by which icons find it.
class LinuxTrayHosts final : public QObject, public TrayHosts
{
    Q_OBJECT

public:
    /// @param connection may be null where there is no X server.
    explicit LinuxTrayHosts(
        std::shared_ptr<X11Connection> connection,
        const QDBusConnection &session = QDBusConnection::sessionBus());

    Availability availability() const override { return Availability::yes(); }
    bool isPresent() override;
    Subscription onArrival(std::function<void()> handler) override;

private:
    enum class Watcher { Silent, Absent, WithoutHost, WithHost };

    Q_SLOT void askWatcher();
    void setWatcher(Watcher watcher);
    bool hasManager();
    void take(const xcb_generic_event_t &event);
    void tell();

    std::shared_ptr<X11Connection> m_connection;
    QDBusConnection m_session;
    QDBusServiceWatcher m_owner;
    Subscription m_events;
    HandlerList<> m_handlers;
    Watcher m_watcher = Watcher::Absent;
};

} // namespace hmatnik::platform
