#pragma once

#include "platform/Availability.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace hmatnik::platform {

/// What a key writes; texts are empty where it writes nothing.
struct KeyCharacters
{
    /// With no modifier held. A dead key gives its accent standing alone.
    QString plain;
    /// With Shift alone.
    QString shifted;
    /// Whether the key is there for the desktop, whichever application is in front: volume,
    /// brightness, Print and their like.
    bool isForDesktop = false;
};

/// The person's keyboard layout, asked about single keys. A key event alone does not tell what
/// its key writes without the modifiers that are held.
class KeyboardLayout
{
public:
    virtual ~KeyboardLayout() = default;

    virtual Availability availability() const = 0;

    /// What a key writes in the layout that was in force when it was pressed.
    /// @param nativeScanCode as QKeyEvent gives it
    /// @param nativeModifiers as QKeyEvent gives it
    virtual KeyCharacters
    characters(std::uint32_t nativeScanCode, std::uint32_t nativeModifiers) = 0;

    /// The digit, 0 to 9, that stands on the key of this place above the letters of an English
    /// keyboard, whatever the key writes in the layout; none for every other place.
    /// @param nativeScanCode as QKeyEvent gives it
    virtual std::optional<int> digit(std::uint32_t nativeScanCode) const = 0;
};

} // namespace hmatnik::platform
