#include "platform/linux/X11Connection.h"

#include <cstring>

namespace hmatnik::platform {

namespace {

constexpr std::uint32_t maximumPropertyWords = 1024;

xcb_screen_t *screenAt(xcb_connection_t *connection, int number)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 0 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}

} // namespace

std::shared_ptr<X11Connection> X11Connection::open()
{
    int screenNumber = 0;
    xcb_connection_t *connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return nullptr;
    }
    const xcb_screen_t *screen = screenAt(connection, screenNumber);
    if (!screen) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::shared_ptr<X11Connection>(
        new X11Connection(connection, screen->root, screenNumber));
}

X11Connection::X11Connection(xcb_connection_t *connection, xcb_window_t root, int screenNumber)
    : m_connection(connection)
    , m_root(root)
    , m_screenNumber(screenNumber)
    , m_notifier(xcb_get_file_descriptor(connection), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &X11Connection::drain);
}

X11Connection::~X11Connection()
{
    m_notifier.setEnabled(false);
    xcb_disconnect(m_connection);
}

xcb_atom_t X11Connection::atom(const QByteArray &name)
{
    if (const auto known = m_atoms.constFind(name); known != m_atoms.constEnd())
        return *known;
    const auto answer = reply(
        xcb_intern_atom_reply,
        xcb_intern_atom(
            m_connection, 0, static_cast<std::uint16_t>(name.size()), name.constData()));
    if (!answer)
        return XCB_ATOM_NONE;
    m_atoms.insert(name, answer->atom);
    return answer->atom;
}

xcb_atom_t X11Connection::trayAtom()
{
    return atom("_NET_SYSTEM_TRAY_S" + QByteArray::number(m_screenNumber));
}

xcb_atom_t X11Connection::compositorAtom()
{
    return atom("_NET_WM_CM_S" + QByteArray::number(m_screenNumber));
}

void X11Connection::selectRootEvents(std::uint32_t mask, bool on)
{
    m_rootEvents = on ? m_rootEvents | mask : m_rootEvents & ~mask;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &m_rootEvents);
    xcb_flush(m_connection);
}

/// The server tells the time only with events, so we cause one: a change of a property of a window
/// of our own that is never shown.
xcb_timestamp_t X11Connection::serverTime()
{
    if (m_clock == XCB_WINDOW_NONE) {
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        m_clock = xcb_generate_id(m_connection);
        xcb_create_window(
            m_connection, XCB_COPY_FROM_PARENT, m_clock, m_root, 0, 0, 1, 1, 0,
            XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    }
    xcb_change_property(
        m_connection, XCB_PROP_MODE_REPLACE, m_clock, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0,
        nullptr);
    // With the reply the event has come in, too.
    reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection));
    drain();
    return m_time;
}

bool X11Connection::check(xcb_void_cookie_t cookie)
{
    xcb_generic_error_t *error = xcb_request_check(m_connection, cookie);
    const bool isDone = !error && xcb_connection_has_error(m_connection) == 0;
    std::free(error); // NOLINT(cppcoreguidelines-no-malloc): the library hands out malloc's
    drainLater();
    return isDone;
}

QByteArray X11Connection::property(xcb_window_t window, const QByteArray &name)
{
    const auto answer = reply(
        xcb_get_property_reply, xcb_get_property(
                                    m_connection, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY,
                                    0, maximumPropertyWords));
    if (!answer)
        return {};
    return {
        static_cast<const char *>(xcb_get_property_value(answer.get())),
        xcb_get_property_value_length(answer.get())};
}

bool X11Connection::hasAtom(xcb_window_t window, const QByteArray &property, const QByteArray &name)
{
    const xcb_atom_t wanted = atom(name);
    const QByteArray atoms = this->property(window, property);
    for (qsizetype at = 0; at + qsizetype{sizeof wanted} <= atoms.size(); at += sizeof wanted) {
        if (std::memcmp(atoms.constData() + at, &wanted, sizeof wanted) == 0)
            return true;
    }
    return false;
}

std::optional<std::uint32_t> X11Connection::number(xcb_window_t window, const QByteArray &name)
{
    const auto answer = reply(
        xcb_get_property_reply,
        xcb_get_property(m_connection, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 1));
    if (!answer || answer->format != 32 || xcb_get_property_value_length(answer.get()) < 4)
        return std::nullopt;
    std::uint32_t value = 0;
    std::memcpy(&value, xcb_get_property_value(answer.get()), sizeof value);
    return value;
}

Subscription X11Connection::onEvent(std::function<void(const xcb_generic_event_t &)> handler)
{
    return m_eventHandlers.add(std::move(handler));
}

Subscription X11Connection::onIdle(std::function<void()> handler)
{
    return m_idleHandlers.add(std::move(handler));
}

void X11Connection::drain()
{
    m_isDrainScheduled = false;
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        noteTime(*event);
        m_eventHandlers.call(*event);
        std::free(event); // NOLINT(cppcoreguidelines-no-malloc): the library hands out malloc's
    }
    if (xcb_connection_has_error(m_connection) != 0) {
        // A closed connection stays readable for ever.
        m_notifier.setEnabled(false);
        return;
    }
    m_idleHandlers.call();
    xcb_flush(m_connection);
}

void X11Connection::noteTime(const xcb_generic_event_t &event)
{
    if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
        return;
    const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
    if (change.window == m_clock)
        m_time = change.time;
}

/// Waiting for a reply also takes in events that came before it; the socket then no longer shows
/// that they are there.
void X11Connection::drainLater()
{
    if (m_isDrainScheduled)
        return;
    m_isDrainScheduled = true;
    QMetaObject::invokeMethod(
        this, [this] { drain(); }, Qt::QueuedConnection);
}

} // namespace hmatnik::platform
