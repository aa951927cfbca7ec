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
};

} // namespace hmatnik::platform
