#pragma once

#include "platform/Preferences.h"

namespace hmatnik {

/// What the program does when the desktop has launched it or asks for it again.
class AppDelegate
{
public:
    /// @param preferences remember whether the program was ever launched
    explicit AppDelegate(platform::Preferences &preferences)
        : m_preferences(preferences)
    {
    }

    /// The first launch ever opens the main window.
    void applicationDidFinishLaunching();

    /// The program was started again while it runs, or clicked in a dock.
    void applicationShouldHandleReopen();

private:
    platform::Preferences &m_preferences;
};

} // namespace hmatnik
