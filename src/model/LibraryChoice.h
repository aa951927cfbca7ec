#pragma once

#include <QString>

#include <optional>

namespace hmatnik {

/// Which library the person wants: the one of the Mac, or that of the desktop in front of them.
enum class LibraryChoice { mac, desktop };

/// The stored form: "mac" or "desktop".
QString rawValue(LibraryChoice choice);
/// The choice that a stored text names exactly; none otherwise.
std::optional<LibraryChoice> libraryChoiceFromRawValue(const QString &rawValue);

} // namespace hmatnik
