#pragma once

#include "views/KeyPress.h"

#include <QStringList>

namespace hmatnik {

/// Which keys have names of their own.
enum class KeyNaming { literal, all };

/// The combination in the notation of the catalogue: held modifiers in the order ⌃ ⌥ ⇧ ⌘, then the
/// key's name, if it has one.
///
/// Deliberately literal: beyond Delete, Tab, the arrows and the space bar no key is given a name,
/// so Return is a carriage return and the minus key a hyphen. "Fn", "Esc" and "F11" never come out.
/// With KeyNaming::all, for a library that has such keys, they do: Return, Escape, the keys around
/// Home and the function keys have names, and the minus key is the minus of the notation. The plus
/// is one also where it takes Shift, and a key that writes a letter, and a digit with Shift, is the
/// digit.
QStringList keyTokens(const KeyPress &press, KeyNaming naming = KeyNaming::literal);

/// Whether some press gives exactly these tokens, with KeyNaming::all. None does for modifiers
/// alone, for Fn, and for keys that belong to the desktop, such as Print.
bool canBePressed(const QStringList &tokens);

} // namespace hmatnik
