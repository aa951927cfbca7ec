#pragma once

#include <QString>

namespace hmatnik {

/// The sheets of the main window.
enum class AppSheet { settings, add };

/// The text that a sheet is known by: "settings", "add".
QString rawValue(AppSheet sheet);

} // namespace hmatnik
