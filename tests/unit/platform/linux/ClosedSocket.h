#pragma once

#include <QByteArray>
#include <QString>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <vector>

namespace hmatnik::test {

/// A socket that is there and takes nobody in: its queue is full. Whoever connects to it waits.
class ClosedSocket
{
public:
    explicit ClosedSocket(const QString &path)
        : m_path(path.toLocal8Bit())
        , m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un place{};
        place.sun_family = AF_UNIX;
        std::strncpy(place.sun_path, m_path.constData(), sizeof place.sun_path - 1);
        const auto *address = reinterpret_cast<const sockaddr *>(&place);
        m_isFull = ::bind(m_socket, address, sizeof place) == 0 && ::listen(m_socket, 0) == 0;
        while (m_isFull) {
            const int filler = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
            m_fillers.push_back(filler);
            if (::connect(filler, address, sizeof place) != 0)
                break;
        }
    }
    ~ClosedSocket()
    {
        for (const int filler : m_fillers)
            ::close(filler);
        ::close(m_socket);
    }
    ClosedSocket(const ClosedSocket &) = delete;
    ClosedSocket &operator=(const ClosedSocket &) = delete;

    bool isFull() const { return m_isFull; }
    /// As D-Bus writes it.
    QString address() const
    {
        return QStringLiteral("unix:path=") + QString::fromLocal8Bit(m_path);
    }

private:
    QByteArray m_path;
    int m_socket;
    bool m_isFull = false;
    std::vector<int> m_fillers;
};

} // namespace hmatnik::test
