#include "platform/linux/DBusStream.h"

#include <dbus/dbus.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <optional>

namespace hmatnik::platform {

namespace {

/// Larger messages end the stream: no honest menu comes near.
constexpr int maximumMessageSize = 32 * 1024 * 1024;
/// No greeting is longer.
constexpr qsizetype maximumGreetingSize = 1024;
constexpr qsizetype chunkSize = qsizetype{64} * 1024;

struct Place
{
    sockaddr_un address{};
    socklen_t size = 0;
};

/// Where the socket of an address is; none if it is of another kind.
std::optional<Place> placeOf(DBusAddressEntry *entry)
{
    if (std::strcmp(dbus_address_entry_get_method(entry), "unix") != 0)
        return std::nullopt;
    const char *path = dbus_address_entry_get_value(entry, "path");
    const char *abstract = dbus_address_entry_get_value(entry, "abstract");
    const char *name = path ? path : abstract;
    Place place;
    place.address.sun_family = AF_UNIX;
    // An abstract name begins with a null and has no end; a path ends with one.
    const std::size_t start = path ? 0 : 1;
    const std::size_t length = name ? std::strlen(name) : 0;
    if (length == 0 || length + 1 > sizeof place.address.sun_path)
        return std::nullopt;
    std::memcpy(place.address.sun_path + start, name, length);
    place.size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + length + 1);
    return place;
}

/// A connected socket; -1 if nobody took us in by then.
int connectTo(const Place &place, const QDeadlineTimer &patience)
{
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0)
        return -1;
    for (;;) {
        // A socket can't be polled for a place in the queue, but connecting obeys the time that
        // sending may take. Zero would mean without end.
        const auto left = std::max<qint64>(patience.remainingTimeNSecs() / 1000, 1);
        const timeval time{left / 1'000'000, left % 1'000'000};
        ::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &time, sizeof time);
        if (::connect(socket, reinterpret_cast<const sockaddr *>(&place.address), place.size) == 0)
            return socket;
        if (errno != EINTR || patience.hasExpired())
            break;
    }
    ::close(socket);
    return -1;
}

} // namespace

std::unique_ptr<DBusStream>
DBusStream::open(const QByteArray &address, const QDeadlineTimer &patience)
{
    DBusAddressEntry **entries = nullptr;
    int count = 0;
    if (!dbus_parse_address(address.constData(), &entries, &count, nullptr))
        return nullptr;
    int socket = -1;
    for (int i = 0; i < count && socket < 0; ++i) {
        if (const auto place = placeOf(entries[i]))
            socket = connectTo(*place, patience);
    }
    dbus_address_entries_free(entries);
    return socket < 0 ? nullptr : std::unique_ptr<DBusStream>(new DBusStream(socket));
}

/// The other program knows from the socket who we are (EXTERNAL); we only have to say so.
DBusStream::DBusStream(int socket)
    : m_socket(socket)
{
    m_outgoing.append('\0');
    m_outgoing += "AUTH EXTERNAL " + QByteArray::number(::geteuid()).toHex() + "\r\n";
}

DBusStream::~DBusStream()
{
    ::close(m_socket);
}

std::uint32_t DBusStream::send(DBusMessage *message)
{
    char *bytes = nullptr;
    int size = 0;
    dbus_message_set_serial(message, ++m_lastSerial);
    if (m_hasEnded || !dbus_message_marshal(message, &bytes, &size))
        return 0;
    (m_isGreeted ? m_outgoing : m_waiting).append(bytes, size);
    dbus_free(bytes);
    return m_lastSerial;
}

bool DBusStream::exchange(int milliseconds)
{
    const bool isSending = m_sent < m_outgoing.size();
    pollfd waiting{m_socket, static_cast<short>(isSending ? POLLIN | POLLOUT : POLLIN), 0};
    if (m_hasEnded)
        return false;
    if (::poll(&waiting, 1, milliseconds) <= 0)
        return true;
    if ((waiting.revents & POLLOUT) != 0)
        transmit();
    if ((waiting.revents & (POLLIN | POLLHUP | POLLERR)) != 0)
        receive();
    return !m_hasEnded;
}

void DBusStream::transmit()
{
    const auto sent = ::send(
        m_socket, m_outgoing.constData() + m_sent,
        static_cast<std::size_t>(m_outgoing.size() - m_sent), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent > 0)
        m_sent += sent;
    else if (errno != EAGAIN && errno != EINTR)
        m_hasEnded = true;
    if (m_sent == m_outgoing.size()) {
        m_outgoing.clear();
        m_sent = 0;
    }
}

void DBusStream::receive()
{
    m_incoming.remove(0, m_taken);
    m_taken = 0;
    const qsizetype before = m_incoming.size();
    m_incoming.resize(before + chunkSize);
    const auto received = ::recv(m_socket, m_incoming.data() + before, chunkSize, MSG_DONTWAIT);
    if (received == 0 || (received < 0 && errno != EAGAIN && errno != EINTR))
        m_hasEnded = true;
    m_incoming.truncate(before + std::max<qsizetype>(received, 0));
    if (!m_isGreeted)
        takeGreeting();
}

void DBusStream::takeGreeting()
{
    const qsizetype end = m_incoming.indexOf("\r\n");
    if (end < 0) {
        m_hasEnded = m_hasEnded || m_incoming.size() > maximumGreetingSize;
        return;
    }
    if (!m_incoming.startsWith("OK")) {
        m_hasEnded = true; // it does not believe us
        return;
    }
    m_taken = end + 2;
    m_isGreeted = true;
    m_outgoing += "BEGIN\r\n" + m_waiting;
    m_waiting.clear();
}

DBusMessage *DBusStream::take()
{
    if (!m_isGreeted)
        return nullptr;
    const char *bytes = m_incoming.constData() + m_taken;
    const auto size = static_cast<int>(m_incoming.size() - m_taken);
    const int needed = dbus_message_demarshal_bytes_needed(bytes, size);
    if (needed < 0 || needed > maximumMessageSize) {
        m_hasEnded = true;
        return nullptr;
    }
    if (needed == 0 || needed > size)
        return nullptr;
    DBusMessage *message = dbus_message_demarshal(bytes, needed, nullptr);
    m_hasEnded = m_hasEnded || !message;
    m_taken += needed;
    return message;
}

void DBusStream::end()
{
    ::shutdown(m_socket, SHUT_RDWR);
}

} // namespace hmatnik::platform
