#pragma once

#include <QString>
#include <QStringList>

namespace hmatnik {

/// Translates symbol names of the Mac's symbol set, which may not be shipped elsewhere, to glyphs
/// of the Material Icons font; the Command mark alone is a character of the text font.
namespace SymbolTable {

/// The glyph as text; empty if the name is not known.
QString glyph(const QString &name);

/// True if the glyph is one of the text font and not of the symbol font.
bool isTextGlyph(const QString &name);

/// Every name that glyph() knows.
QStringList names();

} // namespace SymbolTable

} // namespace hmatnik
