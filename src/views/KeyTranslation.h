#pragma once

#include "model/KeyNames.h"
#include "views/KeyPress.h"

#include <QStringList>

namespace hmatnik {

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

/// The combination with KeyNaming::all, read as the one that is asked for where the press can be
/// read so. A key that writes two signs is known by either: where "?" takes Shift, menus call the
/// combination "⌃ ?" or "⌃ ⇧ ?", and where a digit does, "⌃ 1".
QStringList keyTokens(const KeyPress &press, const QStringList &asked);

} // namespace hmatnik
