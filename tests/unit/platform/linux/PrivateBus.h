#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QProcess>
#include <QString>

namespace hmatnik::test {

/// A message bus of its own for as long as it exists.
class PrivateBus
{
public:
    PrivateBus()
    {
        using namespace Qt::StringLiterals;
        m_process.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
        if (m_process.waitForStarted() && m_process.waitForReadyRead())
            m_address = QString::fromLatin1(m_process.readLine().trimmed());
    }
    ~PrivateBus()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    bool isRunning() const { return !m_address.isEmpty(); }
    const QString &address() const { return m_address; }

    /// A new connection to the bus under a name of its own.
    QDBusConnection connect(const QString &name) const
    {
        return QDBusConnection::connectToBus(m_address, name);
    }

private:
    QProcess m_process;
    QString m_address;
};

} // namespace hmatnik::test
