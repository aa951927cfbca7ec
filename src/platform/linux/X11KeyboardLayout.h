#pragma once

#include "platform/KeyboardLayout.h"

#include <memory>

struct xcb_connection_t;

namespace hmatnik::platform {

/// Asks the X server for the keyboard map at each key, so that a layout changed a moment ago
/// counts; the answer takes about a millisecond.
class X11KeyboardLayout final : public KeyboardLayout
{
public:
    Availability availability() const override;
    KeyCharacters characters(std::uint32_t nativeScanCode, std::uint32_t nativeModifiers) override;
    std::optional<int> digit(std::uint32_t nativeScanCode) const override;

private:
    /// Opens the connection at the first call; false if there is none.
    bool connect();

    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const;
    };
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
};

} // namespace hmatnik::platform
