#pragma once

#include "platform/linux/HandlerList.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>

namespace hmatnik::platform {

/// Whether assistive technologies are switched on for the session (org.a11y.Status IsEnabled).
/// The answer is kept and follows changes. Lives on the main thread.
///
/// At login the service that knows is often started only now, and answers later than anybody could
/// wait for it: then the answer counts as no until it is there, and onChange() tells of it.
class AtSpiStatus final : public QObject
{
    Q_OBJECT

public:
    explicit AtSpiStatus(const QDBusConnection &session);

    /// Waits for the first answer a tenth of a second at most, once; until there is one: false.
    /// Main thread only.
    bool isEnabled();
    /// The same, but waits for an answer that is still to come, 2.5 seconds at most. Needs a main
    /// thread that takes it meanwhile, so not for that one.
    bool waitUntilKnown(const std::stop_token &stop);
    /// Asks for it to be switched on; the answer shows in isEnabled() later. From any thread.
    void requestEnabled();
    /// Calls the handler on the main thread when isEnabled() has become another.
    Subscription onChange(std::function<void()> handler);

private:
    Q_SLOT void takeChange(
        const QString &interface, const QVariantMap &changed, const QStringList &invalidated);
    Q_SLOT void takeAnswer(const QDBusVariant &answer);
    Q_SLOT void takeRefusal(const QDBusError &error);
    void takeOwner(const QString &service, const QString &oldOwner, const QString &newOwner);

    void ask();
    void askUnlessAsked();
    std::optional<bool> known();
    void setKnown(std::optional<bool> isEnabled);
    void tell(bool isEnabled);

    QDBusConnection m_session;
    QDBusServiceWatcher m_watcher;
    HandlerList<> m_handlers;
    /// What handlers have been told last.
    bool m_wasEnabled = false;
    bool m_hasWaited = false;

    std::mutex m_mutex;
    std::condition_variable_any m_isNews;
    std::optional<bool> m_known;
    /// Questions under way whose answers are taken whenever they come.
    int m_asked = 0;
};

} // namespace hmatnik::platform
