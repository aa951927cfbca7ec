#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/HandlerList.h"
#include "platform/linux/X11Connection.h"

#include <memory>
#include <vector>

namespace hmatnik::platform {

/// Ctrl + Alt + Space from any program, by a passive grab for every state of Caps Lock, Num Lock
/// and Scroll Lock. Main thread only.
class X11HotKeys final : public HotKeys
{
public:
    explicit X11HotKeys(std::shared_ptr<X11Connection> connection);
    ~X11HotKeys() override;

    Availability availability() const override { return Availability::yes(); }
    Subscription registerControlOptionSpace(std::function<void()> handler) override;

private:
    bool grab();
    void ungrab();
    void take(const xcb_generic_event_t &event);

    std::shared_ptr<X11Connection> m_connection;
    HandlerList<> m_handlers;
    std::vector<xcb_keycode_t> m_keys;
    /// When the key last came up; a press at the same moment is the keyboard repeating it.
    xcb_timestamp_t m_lastRelease = 0;
    Subscription m_events;
};

} // namespace hmatnik::platform
