#pragma once

#include "views/ViewsModule.h"

#include <functional>

namespace hmatnik {

/// The same actions for a window that goes away before another one comes.
/// @param dismiss hides that window; called before the overlay or the main window is asked for
inline ShellActions dismissFirst(const ShellActions &actions, const std::function<void()> &dismiss)
{
    const auto after = [dismiss](const std::function<void()> &act) {
        return [dismiss, act] {
            dismiss();
            act();
        };
    };
    return {
        .toggleOverlay = after(actions.toggleOverlay),
        .showMainWindow = after(actions.showMainWindow),
        .importSystemShortcuts = actions.importSystemShortcuts,
        .quit = actions.quit};
}

} // namespace hmatnik
