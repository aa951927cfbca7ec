#pragma once

#include "platform/Workspace.h"

#include <QWindow>

namespace hmatnik {

/// Brings a window that is shown to the front with the keyboard, because the person asked for it.
inline void activate(QWindow &window, platform::Workspace &workspace)
{
    window.raise();
    if (!workspace.bringToFront(window.winId()))
        window.requestActivate();
}

} // namespace hmatnik
