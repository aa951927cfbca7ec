#pragma once

#include "platform/Availability.h"

#include <QString>

#include <optional>

namespace hmatnik::platform {

/// Whether the desktop starts this program when the person logs in.
class LoginItem
{
public:
    virtual ~LoginItem() = default;

    virtual Availability availability() const = 0;

    /// The desktop's own answer, read afresh.
    virtual bool isEnabled() const = 0;

    /// Registers or unregisters the program. Gives the system's error text, in the person's
    /// language where the system has one, or none on success.
    [[nodiscard]] virtual std::optional<QString> setEnabled(bool enabled) = 0;
};

} // namespace hmatnik::platform
