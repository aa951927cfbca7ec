#pragma once

#include "platform/Preferences.h"

#include <functional>

namespace hmatnik {

/// What the program does when the desktop has launched it or asks for it again.
class AppDelegate
{
public:
    /// @param preferences remember whether the program was ever launched
    /// @param showMainWindow brings the main window to the front
    AppDelegate(platform::Preferences &preferences, std::function<void()> showMainWindow);

    /// The first launch ever opens the main window.
    void applicationDidFinishLaunching();

    /// The program was started again while it runs, or clicked in a dock.
    void applicationShouldHandleReopen();

private:
    platform::Preferences &m_preferences;
    std::function<void()> m_showMainWindow;
};

} // namespace hmatnik
