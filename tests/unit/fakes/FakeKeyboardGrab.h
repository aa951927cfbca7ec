#pragma once

#include "platform/KeyboardGrab.h"

#include <memory>
#include <vector>

namespace hmatnik::test {

/// A keyboard that can be taken, or not, as the test says.
class FakeKeyboardGrab final : public platform::KeyboardGrab
{
public:
    platform::Availability availability() const override { return m_availability; }
    platform::Subscription grab(QWindow &) override
    {
        ++m_attempts;
        if (m_refusing || !m_availability.available)
            return {};
        ++*m_held;
        return platform::Subscription([held = m_held] { --*held; });
    }

    void passOn(std::uint32_t nativeScanCode, std::uint32_t) override
    {
        m_passedOn.push_back(nativeScanCode);
    }

    void setAvailability(const platform::Availability &availability)
    {
        m_availability = availability;
    }
    /// From now on (or no longer) another program holds the keyboard.
    void setRefusing(bool refusing) { m_refusing = refusing; }
    /// How many grabs last now.
    int heldCount() const { return *m_held; }
    /// How many grabs were asked for so far.
    int attemptCount() const { return m_attempts; }
    /// The keys that the desktop was given.
    const std::vector<std::uint32_t> &passedOn() const { return m_passedOn; }

private:
    platform::Availability m_availability;
    bool m_refusing = false;
    int m_attempts = 0;
    std::vector<std::uint32_t> m_passedOn;
    std::shared_ptr<int> m_held = std::make_shared<int>(0);
};

} // namespace hmatnik::test
