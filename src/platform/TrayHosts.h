#pragma once

#include "platform/Availability.h"
#include "platform/Subscription.h"

#include <functional>

namespace hmatnik::platform {

/// The panels and docks that show small icons of running programs.
class TrayHosts
{
public:
    virtual ~TrayHosts() = default;

    virtual Availability availability() const = 0;

    /// True if an icon made now is sure to find a host. Does not wait for anybody: false as long
    /// as a host that was asked has not answered.
    virtual bool isPresent() = 0;

    /// Calls the handler on the main thread each time that a host arrives, or answers at last.
    virtual Subscription onArrival(std::function<void()> handler) = 0;
};

} // namespace hmatnik::platform
