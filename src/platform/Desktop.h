#pragma once

#include "platform/Accessibility.h"
#include "platform/Appearance.h"
#include "platform/Clock.h"
#include "platform/DesktopKind.h"
#include "platform/HotKeys.h"
#include "platform/KeyboardGrab.h"
#include "platform/KeyboardLayout.h"
#include "platform/LoginItem.h"
#include "platform/MouseMonitor.h"
#include "platform/Notifications.h"
#include "platform/Preferences.h"
#include "platform/SystemShortcuts.h"
#include "platform/TrayHosts.h"
#include "platform/UrlOpener.h"
#include "platform/Workspace.h"

#include <memory>

namespace hmatnik::platform {

/// Everything that the program asks of a desktop. No member is ever null: what a desktop lacks is
/// filled by the adapter of platform/null that says so. Shared, because a menu import that runs in
/// the background may outlive the one who started it.
struct Desktop
{
    std::shared_ptr<Preferences> preferences;
    std::shared_ptr<Workspace> workspace;
    std::shared_ptr<Accessibility> accessibility;
    std::shared_ptr<MouseMonitor> mouseMonitor;
    std::shared_ptr<HotKeys> hotKeys;
    std::shared_ptr<LoginItem> loginItem;
    std::shared_ptr<Appearance> appearance;
    std::shared_ptr<UrlOpener> urlOpener;
    std::shared_ptr<Clock> clock;
    std::shared_ptr<KeyboardLayout> keyboardLayout;
    std::shared_ptr<KeyboardGrab> keyboardGrab;
    std::shared_ptr<TrayHosts> trayHosts;
    std::shared_ptr<Notifications> notifications;
    std::shared_ptr<SystemShortcuts> systemShortcuts;
    DesktopKind kind = {};
};

} // namespace hmatnik::platform
