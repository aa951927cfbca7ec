#pragma once

#include <QString>

namespace hmatnik::platform {

/// Whether the desktop can do what an interface asks of it.
struct Availability
{
    bool available = true;
    /// Why not, in Czech, for a person to read; empty when available.
    QString reason;

    static Availability yes() { return {}; }
    static Availability no(const QString &reason) { return {false, reason}; }
};

} // namespace hmatnik::platform
