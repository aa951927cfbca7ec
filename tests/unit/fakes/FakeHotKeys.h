#pragma once

#include "HandlerList.h"
#include "platform/HotKeys.h"

namespace hmatnik::test {

/// A hot key that the test presses, or that another program holds.
class FakeHotKeys final : public platform::HotKeys
{
public:
    platform::Availability availability() const override { return m_availability; }
    platform::Subscription registerControlOptionSpace(std::function<void()> handler) override
    {
        ++m_registrationAttempts;
        if (m_taken || !m_availability.available)
            return {};
        return m_handlers.add(std::move(handler));
    }

    void setAvailability(const platform::Availability &availability)
    {
        m_availability = availability;
    }
    /// Whether another program holds the combination.
    void setTaken(bool taken) { m_taken = taken; }
    void press() { m_handlers.call(); }
    int registrationAttempts() const { return m_registrationAttempts; }
    int registrationCount() const { return m_handlers.count(); }

private:
    platform::Availability m_availability;
    bool m_taken = false;
    int m_registrationAttempts = 0;
    HandlerList<> m_handlers;
};

} // namespace hmatnik::test
