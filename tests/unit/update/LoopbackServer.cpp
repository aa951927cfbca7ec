#include "update/LoopbackServer.h"

#include <QSslConfiguration>

#include <algorithm>
#include <memory>
#include <utility>

namespace hmatnik::test {

LoopbackServer::LoopbackServer(const TestAuthority::Identity &identity, Answer answer)
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(identity.certificate);
    configuration.setPrivateKey(identity.key);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    m_server.setSslConfiguration(configuration);
    QObject::connect(
        &m_server, &QTcpServer::pendingConnectionAvailable, &m_server,
        [this, answer = std::move(answer)] {
            auto *connection = static_cast<QSslSocket *>(m_server.nextPendingConnection());
            auto request = std::make_shared<QByteArray>();
            QObject::connect(
                connection, &QIODevice::readyRead, connection, [this, connection, request, answer] {
                    *request += connection->readAll();
                    if (!request->endsWith("\r\n\r\n"))
                        return;
                    const QByteArray target = std::exchange(*request, {}).split(' ').value(1);
                    m_targets.append(target);
                    answer(connection, target);
                });
        });
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("no port to listen on");
}

QByteArray
LoopbackServer::message(const QByteArray &status, const QByteArray &body, const QByteArray &headers)
{
    return "HTTP/1.1 " + status + "\r\nContent-Type: application/json\r\nContent-Length: " +
           QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" + body;
}

void LoopbackServer::flood(QSslSocket *connection, const QByteArray &head, qint64 size)
{
    static const QByteArray block(65'536, ' ');
    connection->write(head);
    auto left = std::make_shared<qint64>(size);
    const auto pour = [connection, left] {
        if (*left <= 0 || connection->bytesToWrite() + connection->encryptedBytesToWrite() > 0)
            return;
        *left -= connection->write(block.constData(), std::min<qint64>(*left, block.size()));
        if (*left <= 0)
            connection->disconnectFromHost();
    };
    QObject::connect(connection, &QSslSocket::encryptedBytesWritten, connection, pour);
    pour();
}

} // namespace hmatnik::test
