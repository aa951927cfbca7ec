#pragma once

#include "platform/linux/OpenMenu.h"
#include "platform/linux/X11Connection.h"

#include <QPoint>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace hmatnik::platform {

/// Knows where menus are open, from the kind that toolkits give their windows. Main thread only.
///
/// A quick click is over before anybody can ask where it went: the menu has closed meanwhile. While
/// it watches, it therefore notices menus as they open, and can tell afterwards what a press hit.
class X11Menus
{
public:
    explicit X11Menus(std::shared_ptr<X11Connection> connection)
        : m_connection(std::move(connection))
    {
    }
    ~X11Menus();
    X11Menus(const X11Menus &) = delete;
    X11Menus &operator=(const X11Menus &) = delete;

    /// The handler is called with the process of each menu of another program that opens while
    /// this watches.
    void setOpenHandler(std::function<void(std::int32_t)> handler)
    {
        m_openHandler = std::move(handler);
    }
    void setWatching(bool on);

    /// Takes note of a press, in its turn among the events. True if it hit a menu of another
    /// program.
    bool notePress(QPoint position);

    /// The menu that is open at the point of the screen, or was when it was last pressed there;
    /// none if what is on top there is no menu.
    std::optional<OpenMenu> menuAt(QPoint position) const;

private:
    struct Menu
    {
        xcb_window_t window = XCB_WINDOW_NONE;
        OpenMenu menu;
    };
    struct Press
    {
        QPoint position;
        OpenMenu menu;
    };

    void take(const xcb_generic_event_t &event);
    void opened(xcb_window_t window);
    void closed(xcb_window_t window);
    std::optional<OpenMenu> menuIn(xcb_window_t window) const;
    bool isMenu(xcb_window_t window) const;
    xcb_window_t topWindowAt(QPoint position) const;
    bool isOpen(xcb_window_t window) const;

    std::shared_ptr<X11Connection> m_connection;
    std::function<void(std::int32_t)> m_openHandler;
    Subscription m_events;
    /// The one opened last comes last.
    std::vector<Menu> m_open;
    std::optional<Press> m_press;
};

} // namespace hmatnik::platform
