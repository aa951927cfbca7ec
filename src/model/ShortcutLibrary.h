#pragma once

#include "model/Shortcut.h"

#include <QList>

namespace hmatnik {

/// The keyboard shortcuts that ship with the program.
class ShortcutLibrary
{
public:
    ShortcutLibrary() = delete;

    /// All 58 records in display order; built at the first call, from any thread.
    static const QList<Shortcut> &all();
};

} // namespace hmatnik
