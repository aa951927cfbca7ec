#pragma once

#include "platform/Availability.h"
#include "platform/Subscription.h"

#include <QPointF>

#include <functional>

namespace hmatnik::platform {

/// Notices presses of the mouse in other programs' windows without taking them away.
class MouseMonitor
{
public:
    /// Receives the pointer's position on the screen at the moment of the press.
    using PressHandler = std::function<void(QPointF)>;

    virtual ~MouseMonitor() = default;

    virtual Availability availability() const = 0;

    /// Calls the handler on the main thread for each press of the left button outside our own
    /// windows, for as long as the subscription is held; empty if it can't be done.
    virtual Subscription monitorLeftPresses(PressHandler handler) = 0;
};

} // namespace hmatnik::platform
