#include "FakeDesktop.h"

namespace hmatnik::test {

platform::Desktop FakeDesktop::desktop() const
{
    return {
        .preferences = preferences,
        .workspace = workspace,
        .accessibility = accessibility,
        .mouseMonitor = mouseMonitor,
        .hotKeys = hotKeys,
        .loginItem = loginItem,
        .appearance = appearance,
        .clock = clock,
        .keyboardLayout = keyboardLayout,
        .keyboardGrab = keyboardGrab,
    };
}

} // namespace hmatnik::test
