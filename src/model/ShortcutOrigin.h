#pragma once

#include "model/Shortcut.h"

#include <QString>

namespace hmatnik {

/// How a custom shortcut came to be.
struct ShortcutOrigin
{
    enum class Kind {
        /// Added by hand.
        person,
        /// Imported from an application's menu.
        menu,
        /// Imported from the settings of the desktop.
        desktop
    };

    Kind kind = Kind::person;
    /// The application whose menu it was; empty for the others.
    QString appName = {};

    /// What the record's id and applications say.
    static ShortcutOrigin of(const Shortcut &shortcut);

    bool operator==(const ShortcutOrigin &) const = default;
};

} // namespace hmatnik
