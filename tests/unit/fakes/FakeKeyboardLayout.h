#pragma once

#include "platform/KeyboardLayout.h"

#include <map>

namespace hmatnik::test {

/// A keyboard whose keys write what the test says.
class FakeKeyboardLayout final : public platform::KeyboardLayout
{
public:
    platform::Availability availability() const override { return m_availability; }
    platform::KeyCharacters characters(std::uint32_t nativeScanCode, std::uint32_t) override
    {
        const auto found = m_keys.find(nativeScanCode);
        return found == m_keys.end() ? platform::KeyCharacters() : found->second;
    }
    std::optional<int> digit(std::uint32_t nativeScanCode) const override
    {
        const auto found = m_digits.find(nativeScanCode);
        return found == m_digits.end() ? std::nullopt : std::optional(found->second);
    }

    void setAvailability(const platform::Availability &availability)
    {
        m_availability = availability;
    }
    void setKey(std::uint32_t nativeScanCode, const QString &plain, const QString &shifted)
    {
        m_keys[nativeScanCode] = {plain, shifted};
    }
    /// A key such as the one that turns up the volume.
    void setDesktopKey(std::uint32_t nativeScanCode) { m_keys[nativeScanCode].isForDesktop = true; }
    void setDigit(std::uint32_t nativeScanCode, int digit) { m_digits[nativeScanCode] = digit; }

private:
    platform::Availability m_availability;
    std::map<std::uint32_t, platform::KeyCharacters> m_keys;
    std::map<std::uint32_t, int> m_digits;
};

} // namespace hmatnik::test
