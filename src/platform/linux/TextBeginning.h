#pragma once

#include <QString>

namespace hmatnik::platform {

/// The beginning of a text, not cut within a character nor behind a space.
inline QString beginning(const QString &text, qsizetype maximumLength)
{
    const bool isWithinPair = text.size() > maximumLength &&
                              text[maximumLength - 1].isHighSurrogate() &&
                              text[maximumLength].isLowSurrogate();
    return text.left(isWithinPair ? maximumLength - 1 : maximumLength).trimmed();
}

} // namespace hmatnik::platform
