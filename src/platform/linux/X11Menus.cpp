#include "platform/linux/X11Menus.h"

#include "platform/linux/X11WindowProcess.h"

#include <QByteArray>
#include <QCoreApplication>

#include <algorithm>

namespace hmatnik::platform {

X11Menus::~X11Menus()
{
    setWatching(false);
}

void X11Menus::setWatching(bool on)
{
    if (on == static_cast<bool>(m_events))
        return;
    m_connection->selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY, on);
    m_open.clear();
    m_press.reset();
    if (on)
        m_events = m_connection->onEvent([this](const xcb_generic_event_t &event) { take(event); });
    else
        m_events.cancel();
}

void X11Menus::take(const xcb_generic_event_t &event)
{
    switch (event.response_type & 0x7f) {
    case XCB_MAP_NOTIFY: {
        const auto &map = reinterpret_cast<const xcb_map_notify_event_t &>(event);
        if (map.event == m_connection->root() && map.override_redirect != 0)
            opened(map.window);
        break;
    }
    case XCB_UNMAP_NOTIFY:
        closed(reinterpret_cast<const xcb_unmap_notify_event_t &>(event).window);
        break;
    case XCB_DESTROY_NOTIFY:
        closed(reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window);
        break;
    case XCB_CONFIGURE_NOTIFY: {
        const auto &change = reinterpret_cast<const xcb_configure_notify_event_t &>(event);
        for (Menu &menu : m_open) {
            if (menu.window == change.window)
                menu.menu.place = QRect(change.x, change.y, change.width, change.height);
        }
        break;
    }
    default:
        break;
    }
}

void X11Menus::opened(xcb_window_t window)
{
    const auto menu = menuIn(window);
    if (!menu || menu->process == QCoreApplication::applicationPid())
        return;
    closed(window);
    m_open.push_back({window, *menu});
    if (m_openHandler)
        m_openHandler(menu->process);
}

void X11Menus::closed(xcb_window_t window)
{
    m_open.erase(
        std::remove_if(
            m_open.begin(), m_open.end(),
            [window](const Menu &menu) { return menu.window == window; }),
        m_open.end());
}

bool X11Menus::notePress(QPoint position)
{
    m_press.reset();
    const auto hit = std::find_if(m_open.crbegin(), m_open.crend(), [position](const Menu &menu) {
        return menu.menu.place.contains(position);
    });
    if (hit == m_open.crend())
        return false;
    // The events tell that it was open at the press. If it still is, something may lie on it.
    if (topWindowAt(position) != hit->window && isOpen(hit->window))
        return false;
    m_press = Press{position, hit->menu};
    return true;
}

std::optional<OpenMenu> X11Menus::menuAt(QPoint position) const
{
    if (m_press && m_press->position == position)
        return m_press->menu;
    const xcb_window_t top = topWindowAt(position);
    return top != XCB_WINDOW_NONE ? menuIn(top) : std::nullopt;
}

/// The menu that the window shows, if it is one.
std::optional<OpenMenu> X11Menus::menuIn(xcb_window_t window) const
{
    const auto attributes = m_connection->reply(
        xcb_get_window_attributes_reply, xcb_get_window_attributes(m_connection->raw(), window));
    // A window manager leaves menus alone, so they stand on the root window themselves.
    if (!attributes || attributes->override_redirect == 0 || !isMenu(window))
        return std::nullopt;
    const auto process = processOfWindow(*m_connection, window);
    const auto place =
        m_connection->reply(xcb_get_geometry_reply, xcb_get_geometry(m_connection->raw(), window));
    if (!process || !place)
        return std::nullopt;
    return OpenMenu{*process, QRect(place->x, place->y, place->width, place->height)};
}

bool X11Menus::isMenu(xcb_window_t window) const
{
    const auto is = [this, window](const char *type) {
        return m_connection->hasAtom(window, "_NET_WM_WINDOW_TYPE", type);
    };
    if (is("_NET_WM_WINDOW_TYPE_POPUP_MENU") || is("_NET_WM_WINDOW_TYPE_DROPDOWN_MENU") ||
        is("_NET_WM_WINDOW_TYPE_MENU"))
        return true;
    // Qt 6 makes a menu's window anew whenever it opens, and says what it is only the first time:
    // from then on it is as any window that pops up over another.
    return is("_NET_WM_WINDOW_TYPE_NORMAL") &&
           m_connection->number(window, "WM_TRANSIENT_FOR").value_or(XCB_WINDOW_NONE) !=
               XCB_WINDOW_NONE;
}

xcb_window_t X11Menus::topWindowAt(QPoint position) const
{
    const auto top = m_connection->reply(
        xcb_translate_coordinates_reply,
        xcb_translate_coordinates(
            m_connection->raw(), m_connection->root(), m_connection->root(),
            static_cast<std::int16_t>(position.x()), static_cast<std::int16_t>(position.y())));
    return top ? top->child : xcb_window_t{XCB_WINDOW_NONE};
}

bool X11Menus::isOpen(xcb_window_t window) const
{
    const auto attributes = m_connection->reply(
        xcb_get_window_attributes_reply, xcb_get_window_attributes(m_connection->raw(), window));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

} // namespace hmatnik::platform
