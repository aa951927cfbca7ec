#include "app/DesktopAdapters.h"

#include "platform/linux/LinuxDesktop.h"

namespace hmatnik {

platform::Desktop makeDesktop()
{
    return platform::makeLinuxDesktop();
}

} // namespace hmatnik
