#include "platform/linux/LinuxDesktop.h"

#include "platform/linux/AutostartLoginItem.h"
#include "platform/linux/BrowserUrlOpener.h"
#include "platform/linux/PortalAppearance.h"
#include "platform/linux/PropertyListPreferences.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11Workspace.h"
#include "platform/null/NullDesktop.h"

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
    if (const auto connection = X11Connection::open())
        desktop.workspace = std::make_shared<X11Workspace>(connection);
    return desktop;
}

} // namespace hmatnik::platform
