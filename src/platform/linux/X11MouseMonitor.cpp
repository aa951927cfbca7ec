#include "platform/linux/X11MouseMonitor.h"

#include "platform/linux/X11WindowProcess.h"

#include <QCoreApplication>

#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr std::uint32_t leftButton = 1;
/// A window manager's frame, the program's window and a few of its own inside.
constexpr int maximumWindowDepth = 6;

} // namespace

X11MouseMonitor::X11MouseMonitor(
    std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Menus> menus)
    : m_connection(std::move(connection))
    , m_menus(std::move(menus))
{
    const auto *extension = xcb_get_extension_data(m_connection->raw(), &xcb_input_id);
    if (!extension || extension->present == 0)
        return;
    // From 2.1 on, raw events also come while a menu holds a grab.
    const auto version = m_connection->reply(
        xcb_input_xi_query_version_reply, xcb_input_xi_query_version(m_connection->raw(), 2, 2));
    if (version && (version->major_version > 2 ||
                    (version->major_version == 2 && version->minor_version >= 1)))
        m_extension = extension->major_opcode;
}

X11MouseMonitor::~X11MouseMonitor()
{
    if (!m_handlers.isEmpty())
        select(false);
}

Availability X11MouseMonitor::availability() const
{
    return m_extension != 0
               ? Availability::yes()
               : Availability::no(u"Zobrazovací systém neumí hlásit stisky myši (X Input 2)."_s);
}

Subscription X11MouseMonitor::monitorLeftPresses(PressHandler handler)
{
    if (m_extension == 0)
        return {};
    if (m_handlers.isEmpty()) {
        if (!select(true))
            return {};
        m_events = m_connection->onEvent([this](const xcb_generic_event_t &event) {
            if ((event.response_type & 0x7f) != XCB_GE_GENERIC)
                return;
            const auto &press = reinterpret_cast<const xcb_input_raw_button_press_event_t &>(event);
            if (press.extension == m_extension && press.event_type == XCB_INPUT_RAW_BUTTON_PRESS &&
                isLeft(press))
                takePress();
        });
    }
    return m_handlers.add(std::move(handler), [this] {
        if (!m_handlers.isEmpty())
            return;
        select(false);
        m_events.cancel();
    });
}

bool X11MouseMonitor::select(bool on)
{
    struct
    {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{
        {XCB_INPUT_DEVICE_ALL_MASTER, 1},
        on ? static_cast<std::uint32_t>(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS) : 0U};
    if (m_menus)
        m_menus->setWatching(on);
    return m_connection->check(xcb_input_xi_select_events_checked(
        m_connection->raw(), m_connection->root(), 1, &selection.head));
}

/// Whether the button is the one that people use as the left one. Raw events number buttons as the
/// device does; what they mean is decided by two mappings, that of the device and, on what comes
/// out of it, that of the pointer. Left-handed people swap either, so both are asked for at each
/// press.
bool X11MouseMonitor::isLeft(const xcb_input_raw_button_press_event_t &press)
{
    const auto ask = [this](xcb_input_device_id_t device) {
        return xcb_input_get_device_button_mapping(
            m_connection->raw(), static_cast<std::uint8_t>(device));
    };
    std::uint32_t button = press.detail;
    for (const auto cookie : {ask(press.sourceid), ask(press.deviceid)}) {
        const auto answer = m_connection->reply(xcb_input_get_device_button_mapping_reply, cookie);
        // A device that has gone meanwhile can't tell.
        if (!answer || button == 0 ||
            std::cmp_greater(button, xcb_input_get_device_button_mapping_map_length(answer.get())))
            continue;
        button = xcb_input_get_device_button_mapping_map(answer.get())[button - 1];
    }
    return button == leftButton;
}

void X11MouseMonitor::takePress()
{
    const auto pointer = m_connection->reply(
        xcb_query_pointer_reply, xcb_query_pointer(m_connection->raw(), m_connection->root()));
    if (!pointer || pointer->same_screen == 0)
        return;
    const bool isInMenu = m_menus && m_menus->notePress({pointer->root_x, pointer->root_y});
    if (isInMenu || !isOwnWindowAt(pointer->root_x, pointer->root_y, pointer->child))
        m_handlers.call(QPointF(pointer->root_x, pointer->root_y));
}

/// Whether the window on top at the point, or one inside it there, is ours.
bool X11MouseMonitor::isOwnWindowAt(std::int16_t x, std::int16_t y, xcb_window_t child)
{
    const auto own = static_cast<std::uint32_t>(QCoreApplication::applicationPid());
    for (int depth = 0; child != XCB_WINDOW_NONE && depth < maximumWindowDepth; ++depth) {
        if (m_connection->number(child, "_NET_WM_PID") == own)
            return true;
        const auto inside = m_connection->reply(
            xcb_translate_coordinates_reply,
            xcb_translate_coordinates(m_connection->raw(), m_connection->root(), child, x, y));
        child = inside ? inside->child : xcb_window_t{XCB_WINDOW_NONE};
    }
    return false;
}

} // namespace hmatnik::platform
