#include "platform/linux/LinuxDesktop.h"

#include "platform/linux/AtSpiAccessibility.h"
#include "platform/linux/AutostartLoginItem.h"
#include "platform/linux/BrowserUrlOpener.h"
#include "platform/linux/BusNotifications.h"
#include "platform/linux/DesktopFamilies.h"
#include "platform/linux/LinuxTrayHosts.h"
#include "platform/linux/PortalAppearance.h"
#include "platform/linux/ProgramSystemShortcuts.h"
#include "platform/linux/PropertyListPreferences.h"
#include "platform/linux/WindowKeyboardGrab.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11HotKeys.h"
#include "platform/linux/X11KeyboardLayout.h"
#include "platform/linux/X11Menus.h"
#include "platform/linux/X11MouseMonitor.h"
#include "platform/linux/X11Workspace.h"
#include "platform/null/NullDesktop.h"

#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

Desktop makeLinuxDesktop()
{
    Desktop desktop =
        makeNullDesktop(u"Tato plocha neběží na systému X11, bez něj to Hmatník neumí."_s);
    desktop.preferences = std::make_shared<PropertyListPreferences>();
    desktop.loginItem = std::make_shared<AutostartLoginItem>();
    desktop.appearance = std::make_shared<PortalAppearance>();
    desktop.urlOpener = std::make_shared<BrowserUrlOpener>();
    desktop.notifications = std::make_shared<BusNotifications>();
    desktop.kind.family = desktopFamily(qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
    std::shared_ptr<X11Menus> menus;
    AtSpiAccessibility::MenuAt menuAt;
    const auto connection = X11Connection::open();
    if (connection) {
        desktop.workspace = std::make_shared<X11Workspace>(connection);
        menus = std::make_shared<X11Menus>(connection);
        desktop.mouseMonitor = std::make_shared<X11MouseMonitor>(connection, menus);
        desktop.hotKeys = std::make_shared<X11HotKeys>(connection);
        desktop.keyboardLayout = std::make_shared<X11KeyboardLayout>();
        desktop.keyboardGrab = std::make_shared<WindowKeyboardGrab>();
        menuAt = [menus](QPoint position) {
            return menus->menuAt(position);
        };
    }
    desktop.trayHosts = std::make_shared<LinuxTrayHosts>(connection);
    desktop.systemShortcuts = ProgramSystemShortcuts::forThisDesktop([connection] {
        return connection ? X11Workspace::windowManagerName(*connection) : QString();
    });
    const auto accessibility = std::make_shared<AtSpiAccessibility>(std::move(menuAt));
    if (menus) {
        menus->setOpenHandler([weak = std::weak_ptr(accessibility)](std::int32_t process) {
            if (const auto accessibility = weak.lock())
                accessibility->readOpenMenus(process);
        });
    }
    desktop.accessibility = accessibility;
    return desktop;
}

} // namespace hmatnik::platform
