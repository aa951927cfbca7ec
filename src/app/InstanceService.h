#pragma once

#include <QDBusAbstractAdaptor>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace hmatnik {

/// Makes this process the one that a second start, a launcher or a dock talks to, by the Desktop
/// Entry standard's D-Bus interface org.freedesktop.Application.
class InstanceService : public QObject
{
    Q_OBJECT

public:
    enum class Outcome {
        /// The name is ours.
        Serving,
        /// Another process has it and was asked to re-open.
        HandedOver,
        /// There is no session bus, or it refuses; the program runs alone.
        Alone
    };

    /// @param reopen called on the main thread when the running program is asked to re-open
    explicit InstanceService(std::function<void()> reopen, QObject *parent = nullptr);

    Outcome start();

private:
    std::function<void()> m_reopen;
};

/// The interface's methods.
class ApplicationAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    ApplicationAdaptor(std::function<void()> reopen, QObject *parent)
        : QDBusAbstractAdaptor(parent)
        , m_reopen(std::move(reopen))
    {
    }

public Q_SLOTS:
    void Activate(const QVariantMap &) { m_reopen(); }
    void Open(const QStringList &, const QVariantMap &) { m_reopen(); }
    void ActivateAction(const QString &, const QVariantList &, const QVariantMap &) { m_reopen(); }

private:
    std::function<void()> m_reopen;
};

} // namespace hmatnik
