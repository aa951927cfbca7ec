#pragma once

#include <QString>

namespace hmatnik::platform {

/// How a shortcut that starts a command is named where its desktop has no name for it:
/// "Spustit thunar". Empty without a command.
QString commandTitle(const QString &command);

} // namespace hmatnik::platform
