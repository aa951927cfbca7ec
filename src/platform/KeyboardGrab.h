#pragma once

#include "platform/Availability.h"
#include "platform/Subscription.h"

class QWindow;

namespace hmatnik::platform {

/// Takes the whole keyboard for a window of ours, so that it receives also the combinations that
/// the desktop or its window manager would act on.
class KeyboardGrab
{
public:
    virtual ~KeyboardGrab() = default;

    virtual Availability availability() const = 0;

    /// Takes the keyboard until the subscription is let go of or the window disappears. Empty if
    /// it can't be had now, because another program holds it.
    virtual Subscription grab(QWindow &window) = 0;
};

} // namespace hmatnik::platform
