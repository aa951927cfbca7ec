#pragma once

#include <QString>
#include <QStringList>

namespace hmatnik {

/// How key tokens are said aloud: screen readers skip or mispronounce the modifier glyphs.
namespace KeyNames {

/// "⌘" is "Command", "←" is "Šipka vlevo", "C" stays "C".
QString spoken(const QString &token);

/// The tokens of a combination in order, separated by spaces.
QString spoken(const QStringList &tokens);

} // namespace KeyNames

} // namespace hmatnik
