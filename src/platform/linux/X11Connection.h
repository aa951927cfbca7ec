#pragma once

#include "platform/linux/HandlerList.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSocketNotifier>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>

namespace hmatnik::platform {

/// Our own connection to the X server, shared by the adapters. It is apart from the toolkit's, so
/// that it works without windows and no event mask of ours meets one of the toolkit's. It sleeps
/// until the server sends something.
class X11Connection final : public QObject
{
public:
    template <typename Reply>
    using ReplyPtr = std::unique_ptr<Reply, decltype(&std::free)>;

    /// Connects to the display of the environment; null if there is none.
    static std::shared_ptr<X11Connection> open();
    ~X11Connection() override;

    xcb_connection_t *raw() const { return m_connection; }
    xcb_window_t root() const { return m_root; }

    /// The server's time now, in milliseconds.
    xcb_timestamp_t serverTime();

    /// The number of a name, asked for once. 0 if the connection is lost.
    xcb_atom_t atom(const QByteArray &name);
    /// The selection that the manager of our screen's tray owns.
    xcb_atom_t trayAtom();
    /// The one that its compositing manager owns (Extended Window Manager Hints).
    xcb_atom_t compositorAtom();

    /// Adds to the events of the root window that reach us, or takes away from them. Each adapter
    /// asks for its own; the server knows one mask per connection.
    /// @param mask bits of xcb_event_mask_t
    void selectRootEvents(std::uint32_t mask, bool on = true);

    /// Waits for the reply of a request; null if it failed, because the window has gone, say.
    template <typename Reply, typename Cookie>
    ReplyPtr<Reply>
    reply(Reply *(*wait)(xcb_connection_t *, Cookie, xcb_generic_error_t **), Cookie cookie)
    {
        xcb_generic_error_t *error = nullptr;
        ReplyPtr<Reply> reply(wait(m_connection, cookie, &error), &std::free);
        std::free(error); // NOLINT(cppcoreguidelines-no-malloc): the library hands out malloc's
        drainLater();
        return reply;
    }

    /// Waits until the server has carried out a checked request; false if it failed.
    bool check(xcb_void_cookie_t cookie);

    /// The beginning of a window's property, at most 4 KiB, whatever its type; empty if there is
    /// none.
    QByteArray property(xcb_window_t window, const QByteArray &name);
    /// Whether a property of atoms, such as _NET_SUPPORTED, holds one of that name.
    bool hasAtom(xcb_window_t window, const QByteArray &property, const QByteArray &name);
    /// A property's first 32-bit value; none if it has another form.
    std::optional<std::uint32_t> number(xcb_window_t window, const QByteArray &name);

    /// Calls the handler with every event and every error of an unchecked request.
    Subscription onEvent(std::function<void(const xcb_generic_event_t &)> handler);
    /// Calls the handler when no further event is waiting.
    Subscription onIdle(std::function<void()> handler);

private:
    X11Connection(xcb_connection_t *connection, xcb_window_t root, int screenNumber);

    void drain();
    void noteTime(const xcb_generic_event_t &event);
    void drainLater();

    xcb_connection_t *m_connection;
    xcb_window_t m_root;
    int m_screenNumber;
    std::uint32_t m_rootEvents = 0;
    xcb_window_t m_clock = XCB_WINDOW_NONE;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    QSocketNotifier m_notifier;
    QHash<QByteArray, xcb_atom_t> m_atoms;
    HandlerList<const xcb_generic_event_t &> m_eventHandlers;
    HandlerList<> m_idleHandlers;
    bool m_isDrainScheduled = false;
};

} // namespace hmatnik::platform
