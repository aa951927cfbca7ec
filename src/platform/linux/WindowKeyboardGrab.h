#pragma once

#include "platform/KeyboardGrab.h"

namespace hmatnik::platform {

/// An active grab of the X server's keyboard, made on the toolkit's own connection, because key
/// events go to the client that grabs.
class WindowKeyboardGrab final : public KeyboardGrab
{
public:
    Availability availability() const override;
    Subscription grab(QWindow &window) override;
    /// The server does not act again on an event that a grab has delivered, so the key is pressed
    /// anew by its testing extension. An X server inside a Wayland session would ask the person
    /// for permission to control the desktop: there nothing happens.
    void passOn(std::uint32_t nativeScanCode, std::uint32_t nativeModifiers) override;
};

} // namespace hmatnik::platform
