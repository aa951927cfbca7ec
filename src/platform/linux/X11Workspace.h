#pragma once

#include "platform/Workspace.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/HandlerList.h"
#include "platform/linux/X11Connection.h"

#include <memory>

namespace hmatnik::platform {

/// Follows the window manager's _NET_ACTIVE_WINDOW on the root window. Main thread only.
class X11Workspace final : public Workspace
{
public:
    explicit X11Workspace(
        std::shared_ptr<X11Connection> connection,
        const DesktopEntries &entries = DesktopEntries());

    Availability availability() const override { return Availability::yes(); }
    std::optional<RunningApplication> frontmostApplication() override;
    Subscription onActivation(ActivationHandler handler) override;
    bool bringToFront(std::uintptr_t window) override;
    bool blendsWindows() override;
    std::int32_t ownProcessIdentifier() const override;

private:
    bool hasWindowManager();
    xcb_window_t activeWindow();
    std::optional<RunningApplication> applicationOf(xcb_window_t window);
    std::optional<QString> nameOf(xcb_window_t window);
    void followActivation();

    std::shared_ptr<X11Connection> m_connection;
    DesktopEntries m_entries;
    HandlerList<std::optional<RunningApplication>> m_handlers;
    /// The application that the handlers know to be active.
    std::optional<RunningApplication> m_active;
    bool m_hasChanged = false;
    Subscription m_events;
    Subscription m_idle;
};

} // namespace hmatnik::platform
