#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <atomic>

namespace hmatnik::platform {

/// Whether assistive technologies are switched on for the session (org.a11y.Status IsEnabled).
/// The answer is kept and follows changes. Lives on the main thread; may be asked on any.
class AtSpiStatus final : public QObject
{
    Q_OBJECT

public:
    explicit AtSpiStatus(const QDBusConnection &session);

    /// Waits for the first answer a tenth of a second at most; until there is one: false.
    bool isEnabled();
    /// Asks for it to be switched on; the answer shows in isEnabled() later.
    void requestEnabled();

private:
    Q_SLOT void takeChange(
        const QString &interface, const QVariantMap &changed, const QStringList &invalidated);

    enum class Known { Nothing, No, Yes };

    QDBusConnection m_session;
    QDBusServiceWatcher m_watcher;
    std::atomic<Known> m_known = Known::Nothing;
};

} // namespace hmatnik::platform
