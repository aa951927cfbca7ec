#include "platform/linux/WindowKeyboardGrab.h"

#include <QPointer>
#include <QWindow>

namespace hmatnik::platform {

Availability WindowKeyboardGrab::availability() const
{
    return Availability::yes();
}

Subscription WindowKeyboardGrab::grab(QWindow &window)
{
    if (!window.setKeyboardGrabEnabled(true))
        return {};
    return Subscription([held = QPointer(&window)] {
        if (held)
            held->setKeyboardGrabEnabled(false);
    });
}

} // namespace hmatnik::platform
