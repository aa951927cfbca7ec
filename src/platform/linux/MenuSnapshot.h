#pragma once

#include <QString>

#include <cstddef>
#include <vector>

namespace hmatnik::platform {

/// A menu bar with everything below it, as another program handed it out in one go. Plain values.
struct MenuSnapshot
{
    struct Node
    {
        /// Without padding and control characters; empty if there is none.
        QString title;
        /// As the toolkit words it; see KeyBinding.
        QString keyBinding;
        /// Positions in nodes, in order.
        std::vector<std::size_t> children;
    };
    /// The menu bar first.
    std::vector<Node> nodes;
};

} // namespace hmatnik::platform
