#pragma once

#include <QRect>

#include <cstdint>

namespace hmatnik::platform {

/// A menu of another program that is on the screen, as the window system knows it.
struct OpenMenu
{
    /// The process that shows it.
    std::int32_t process = 0;
    /// Its window, in pixels.
    QRect place;

    bool operator==(const OpenMenu &) const = default;
};

} // namespace hmatnik::platform
