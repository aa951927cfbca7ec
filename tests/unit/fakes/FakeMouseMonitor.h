#pragma once

#include "HandlerList.h"
#include "platform/MouseMonitor.h"

namespace hmatnik::test {

/// A mouse that the test presses.
class FakeMouseMonitor final : public platform::MouseMonitor
{
public:
    platform::Availability availability() const override { return m_availability; }
    platform::Subscription monitorLeftPresses(PressHandler handler) override
    {
        if (!m_availability.available)
            return {};
        return m_handlers.add(std::move(handler));
    }

    void setAvailability(const platform::Availability &availability)
    {
        m_availability = availability;
    }
    void press(QPointF position) { m_handlers.call(position); }
    /// How many monitors are installed now.
    int monitorCount() const { return m_handlers.count(); }

private:
    platform::Availability m_availability;
    HandlerList<QPointF> m_handlers;
};

} // namespace hmatnik::test
