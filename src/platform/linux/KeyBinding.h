#pragma once

#include "platform/MenuModifiers.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace hmatnik::platform {

/// The keyboard shortcut of a menu item, read from what its toolkit hands to assistive
/// technologies as the item's key binding.
struct KeyBinding
{
    /// The character that the key writes, or the glyph that menus print for it (← → ↑ ↓ ⌫ ⌦ ↩ ⇥ ⎋
    /// ⇞ ⇟ ↖ ↘, F1 to F35); for the few keys that have neither, their name ("Mezerník", "Insert").
    QString character;
    /// Bits of MenuModifiers; Super counts as Command, Alt as Option.
    std::int64_t modifiers = MenuModifiers::noCommand;

    bool operator==(const KeyBinding &) const = default;

    /// None if the binding is no shortcut that works outside the menu: there is none, it is only
    /// the mnemonic, it is a modifier alone, it takes several strokes, or it makes no sense.
    ///
    /// Two forms are known. GTK hands out "n;<Alt>f:n;<Primary>n": mnemonic, way through the menus
    /// and shortcut, of which only the last counts. Qt hands out "Ctrl+Shift+R", in the language of
    /// its own texts, or for an item without a shortcut its mnemonic, "Alt+C" for "Clear".
    /// @param title of the item, which tells a mnemonic from a shortcut with Alt.
    static std::optional<KeyBinding> parse(const QString &binding, const QString &title);
};

} // namespace hmatnik::platform
