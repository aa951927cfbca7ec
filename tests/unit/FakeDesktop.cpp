#include "FakeDesktop.h"

#include "platform/null/NullDesktop.h"

namespace hmatnik::test {

platform::Desktop FakeDesktop::desktop() const
{
    // What has no fake of its own comes from the desktop that can do nothing, so that no member is
    // null.
    platform::Desktop desktop = platform::makeNullDesktop(QStringLiteral("zkouška"));
    desktop.preferences = preferences;
    desktop.workspace = workspace;
    desktop.accessibility = accessibility;
    desktop.mouseMonitor = mouseMonitor;
    desktop.hotKeys = hotKeys;
    desktop.loginItem = loginItem;
    desktop.appearance = appearance;
    desktop.urlOpener = urlOpener;
    desktop.clock = clock;
    desktop.keyboardLayout = keyboardLayout;
    desktop.keyboardGrab = keyboardGrab;
    desktop.trayHosts = trayHosts;
    desktop.notifications = notifications;
    desktop.systemShortcuts = systemShortcuts;
    desktop.kind = kind;
    return desktop;
}

} // namespace hmatnik::test
