#pragma once

#include <QByteArray>
#include <QDeadlineTimer>

#include <cstdint>
#include <memory>

struct DBusMessage;

namespace hmatnik::platform {

/// Messages to and from another program, over a socket of this machine. It stands where libdbus
/// has a connection of its own: that one waits without end for a program that takes nobody in.
/// Belongs to one thread, whichever it is.
class DBusStream
{
public:
    /// Connects; how the two greet each other is left to exchange().
    /// @param address as D-Bus writes it; kinds other than sockets of this machine are passed over
    /// @param patience how long to wait for a place in the queue of the other program; it is there
    ///        at once unless many wait or the program takes nobody in
    /// @return null if nobody takes us in
    static std::unique_ptr<DBusStream>
    open(const QByteArray &address, const QDeadlineTimer &patience);
    ~DBusStream();
    DBusStream(const DBusStream &) = delete;
    DBusStream &operator=(const DBusStream &) = delete;

    /// Puts a message down for exchange() and gives its number; 0 if the stream has ended.
    std::uint32_t send(DBusMessage *message);
    /// Sends and receives what it can; waits for something to happen as long as told at most.
    /// @return false once the other program has gone, or has sent what is no message
    bool exchange(int milliseconds);
    /// The next message that has come in, for the caller to let go of; null if there is none.
    DBusMessage *take();
    /// Ends the stream: whoever waits in exchange() comes back. May be called from any thread.
    void end();

private:
    explicit DBusStream(int socket);
    void receive();
    void takeGreeting();
    void transmit();

    int m_socket;
    std::uint32_t m_lastSerial = 0;
    /// What may go out now, and how much of it has gone.
    QByteArray m_outgoing;
    qsizetype m_sent = 0;
    /// Messages put down before the other program has greeted us.
    QByteArray m_waiting;
    /// What came in, and how much of it has been taken.
    QByteArray m_incoming;
    qsizetype m_taken = 0;
    bool m_isGreeted = false;
    bool m_hasEnded = false;
};

} // namespace hmatnik::platform
