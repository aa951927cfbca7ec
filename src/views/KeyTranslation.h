#pragma once

#include "views/KeyPress.h"

#include <QStringList>

namespace hmatnik {

/// The combination in the notation of the catalogue: held modifiers in the order ⌃ ⌥ ⇧ ⌘, then the
/// key's name, if it has one.
///
/// Deliberately literal: beyond Delete, Tab, the arrows and the space bar no key is given a name,
/// so Return is a carriage return and the minus key a hyphen. "Fn", "Esc" and "F11" never come out.
QStringList keyTokens(const KeyPress &press);

} // namespace hmatnik
