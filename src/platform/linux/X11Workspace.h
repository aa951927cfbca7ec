#pragma once

#include "platform/Workspace.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/HandlerList.h"
#include "platform/linux/X11Connection.h"

#include <memory>

namespace hmatnik::platform {

/// Follows the window manager's _NET_ACTIVE_WINDOW on the root window, and what the active window
/// tells of its application: an office, for one, shows its window before it says which part of the
/// office that is. Main thread only.
class X11Workspace final : public Workspace
{
public:
    /// Name of the window manager that runs now; empty if there is none, or it has none.
    static QString windowManagerName(X11Connection &connection);

    explicit X11Workspace(
        std::shared_ptr<X11Connection> connection,
        const DesktopEntries &entries = DesktopEntries());
    ~X11Workspace() override;

    Availability availability() const override { return Availability::yes(); }
    std::optional<RunningApplication> frontmostApplication() override;
    Subscription onActivation(ActivationHandler handler) override;
    bool bringToFront(std::uintptr_t window) override;
    bool blendsWindows() override;
    std::int32_t ownProcessIdentifier() const override;

private:
    bool hasWindowManager();
    xcb_window_t activeWindow();
    bool tellsOfApplication(const xcb_property_notify_event_t &change);
    void watch(xcb_window_t window);
    std::optional<RunningApplication> applicationOf(xcb_window_t window);
    std::optional<QString> nameOf(xcb_window_t window);
    void followActivation();

    std::shared_ptr<X11Connection> m_connection;
    DesktopEntries m_entries;
    HandlerList<std::optional<RunningApplication>> m_handlers;
    /// The application that the handlers know to be active.
    std::optional<RunningApplication> m_active;
    bool m_hasChanged = false;
    /// The active window, whose properties are watched.
    xcb_window_t m_watched = XCB_WINDOW_NONE;
    Subscription m_events;
    Subscription m_idle;
};

} // namespace hmatnik::platform
