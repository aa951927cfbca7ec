#pragma once

#include "platform/Subscription.h"

#include <functional>

namespace hmatnik::platform {

/// How the person wants programs to look.
class Appearance
{
public:
    enum class ColorScheme { NoPreference, Dark, Light };

    virtual ~Appearance() = default;

    /// The desktop's choice; NoPreference where it does not say (follow the palette then).
    virtual ColorScheme colorScheme() const = 0;

    /// True if the person asked for less motion.
    virtual bool reducedMotion() const = 0;

    /// True if the person asked for more contrast.
    virtual bool highContrast() const = 0;

    /// Calls the handler on the main thread after any of the answers changed.
    virtual Subscription onChange(std::function<void()> handler) = 0;
};

} // namespace hmatnik::platform
