#pragma once

#include <QString>
#include <QStringList>

namespace hmatnik {

/// How key tokens are drawn, and how they are said aloud: screen readers skip or mispronounce the
/// modifier glyphs.
namespace KeyNames {

/// What stands on the token's cap: the token itself, but Return, Escape and the forward Delete,
/// which are pressed as control characters, have the glyphs that menus print for them.
QString shown(const QString &token);

/// "⌘" is "Command", "←" is "Šipka vlevo", "C" stays "C".
QString spoken(const QString &token);

/// The tokens of a combination in order, separated by spaces.
QString spoken(const QStringList &tokens);

} // namespace KeyNames

} // namespace hmatnik
