#pragma once

#include "update/TestAuthority.h"

#include <QByteArrayList>
#include <QSslServer>
#include <QSslSocket>

#include <functional>

namespace hmatnik::test {

/// A real HTTPS server on the loopback interface that answers as a test says.
class LoopbackServer
{
public:
    /// Answers one request on its connection; told the target of the request line.
    using Answer = std::function<void(QSslSocket *connection, const QByteArray &target)>;

    LoopbackServer(const TestAuthority::Identity &identity, Answer answer);

    /// host:port to fetch from.
    QString host() const { return QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort()); }
    /// The targets of the requests that came in, in order.
    const QByteArrayList &targets() const { return m_targets; }

    /// A whole answer.
    /// @param status such as "200 OK".
    /// @param headers each ended with a line break; a length is added.
    static QByteArray
    message(const QByteArray &status, const QByteArray &body, const QByteArray &headers = {});

    /// Sends bytes without end, or so many, as fast as the other side takes them.
    static void flood(QSslSocket *connection, const QByteArray &head, qint64 size);

private:
    QSslServer m_server;
    QByteArrayList m_targets;
};

} // namespace hmatnik::test
