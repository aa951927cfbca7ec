#pragma once

#include <QString>
#include <QStringView>

namespace hmatnik::platform {

/// Writes a string so that XML 1.0 can carry it and any reader gives it back unchanged.
///
/// XML has no way to write most control characters, unpaired surrogates, U+FFFE and U+FFFF, and
/// its readers turn a carriage return into a line feed. Each such code unit becomes "␛" (U+241B,
/// the picture of Escape) and four upper-case hexadecimal digits; a "␛" of the text itself is
/// written that way only where it would otherwise read as such a sequence.
QString escapedForXml(const QString &text);

/// The inverse of escapedForXml(). A "␛" that starts no such sequence stands for itself.
QString unescapedFromXml(const QString &text);

} // namespace hmatnik::platform
