#pragma once

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeAppearance.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeKeyboardGrab.h"
#include "fakes/FakeKeyboardLayout.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeMouseMonitor.h"
#include "fakes/FakeNotifications.h"
#include "fakes/FakePreferences.h"
#include "fakes/FakeSystemShortcuts.h"
#include "fakes/FakeTrayHosts.h"
#include "fakes/FakeUrlOpener.h"
#include "fakes/FakeWorkspace.h"
#include "platform/Desktop.h"

#include <memory>

namespace hmatnik::test {

/// A desktop that a test steers. At first the store is empty, nothing is in front, accessibility is
/// trusted, everything is available, and it is noon of 1 January 2025 in Prague.
class FakeDesktop
{
public:
    std::shared_ptr<FakePreferences> preferences = std::make_shared<FakePreferences>();
    std::shared_ptr<FakeWorkspace> workspace = std::make_shared<FakeWorkspace>();
    std::shared_ptr<FakeAccessibility> accessibility = std::make_shared<FakeAccessibility>();
    std::shared_ptr<FakeMouseMonitor> mouseMonitor = std::make_shared<FakeMouseMonitor>();
    std::shared_ptr<FakeHotKeys> hotKeys = std::make_shared<FakeHotKeys>();
    std::shared_ptr<FakeLoginItem> loginItem = std::make_shared<FakeLoginItem>();
    std::shared_ptr<FakeAppearance> appearance = std::make_shared<FakeAppearance>();
    std::shared_ptr<FakeUrlOpener> urlOpener = std::make_shared<FakeUrlOpener>();
    std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();
    std::shared_ptr<FakeKeyboardLayout> keyboardLayout = std::make_shared<FakeKeyboardLayout>();
    std::shared_ptr<FakeKeyboardGrab> keyboardGrab = std::make_shared<FakeKeyboardGrab>();
    std::shared_ptr<FakeTrayHosts> trayHosts = std::make_shared<FakeTrayHosts>();
    std::shared_ptr<FakeNotifications> notifications = std::make_shared<FakeNotifications>();
    std::shared_ptr<FakeSystemShortcuts> systemShortcuts = std::make_shared<FakeSystemShortcuts>();

    platform::DesktopKind kind;

    /// The same adapters as the program receives them.
    platform::Desktop desktop() const;
};

} // namespace hmatnik::test
