#pragma once

#include "platform/Availability.h"
#include "platform/Subscription.h"

#include <cstdint>

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

    /// Has a key pressed and released once more, for the desktop to act on: it came to us because
    /// we held the keyboard. To be called when the keyboard is free and the key is up again. If
    /// other modifiers are held by then, nothing happens: it could be another command.
    /// @param nativeScanCode as QKeyEvent gave it
    /// @param nativeModifiers as QKeyEvent gave them when the key was pressed
    virtual void passOn(std::uint32_t nativeScanCode, std::uint32_t nativeModifiers) = 0;
};

} // namespace hmatnik::platform
