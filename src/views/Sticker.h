#pragma once

#include <QStringList>

namespace hmatnik {

/// The sheet of the most important built-in shortcuts, as the printed sticker has them.
class Sticker
{
public:
    /// Ids of its shortcuts. They are shown in the library's order, not in this one.
    static const QStringList &shortcutIds();
};

} // namespace hmatnik
