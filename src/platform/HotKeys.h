#pragma once

#include "platform/Availability.h"
#include "platform/Subscription.h"

#include <functional>

namespace hmatnik::platform {

/// Key combinations that reach us from any program.
class HotKeys
{
public:
    virtual ~HotKeys() = default;

    virtual Availability availability() const = 0;

    /// Registers Control + Option + Space (Ctrl + Alt + Space on a PC keyboard). The handler is
    /// called on the main thread. Empty if the combination is taken by another program.
    virtual Subscription registerControlOptionSpace(std::function<void()> handler) = 0;
};

} // namespace hmatnik::platform
