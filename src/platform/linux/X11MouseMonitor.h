#pragma once

#include "platform/MouseMonitor.h"
#include "platform/linux/HandlerList.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11Menus.h"

#include <xcb/xinput.h>

#include <memory>

namespace hmatnik::platform {

/// Hears raw button presses of the X Input extension on the root window: no grab, so every program
/// keeps its clicks. Asks for them only while somebody listens. Main thread only.
class X11MouseMonitor final : public MouseMonitor
{
public:
    /// @param menus told to watch while somebody listens, and of every press; may be null
    explicit X11MouseMonitor(
        std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Menus> menus = {});
    ~X11MouseMonitor() override;

    Availability availability() const override;
    Subscription monitorLeftPresses(PressHandler handler) override;

private:
    bool select(bool on);
    bool isLeft(const xcb_input_raw_button_press_event_t &press);
    void takePress();
    bool isOwnWindowAt(std::int16_t x, std::int16_t y, xcb_window_t child);

    std::shared_ptr<X11Connection> m_connection;
    std::shared_ptr<X11Menus> m_menus;
    /// The extension's number in events; 0 if it is missing or too old.
    std::uint8_t m_extension = 0;
    HandlerList<QPointF> m_handlers;
    Subscription m_events;
};

} // namespace hmatnik::platform
