#pragma once

#include <QStringList>

#include <cstdint>

namespace hmatnik::platform {

/// Bits of a menu item's "AXMenuItemCmdModifiers".
struct MenuModifiers
{
    /// Command is held unless noCommand is set.
    enum Bit : std::int64_t { shift = 1, option = 2, control = 4, noCommand = 8 };

    /// The tokens of the modifiers, in the order in which menus print them.
    static QStringList tokens(std::int64_t modifiers);
};

} // namespace hmatnik::platform
