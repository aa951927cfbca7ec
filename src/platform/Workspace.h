#pragma once

#include "platform/Availability.h"
#include "platform/Subscription.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace hmatnik::platform {

/// An application that runs on the desktop.
struct RunningApplication
{
    /// Name as the person knows it, in the desktop's language; none if the desktop knows no name.
    std::optional<QString> localizedName;
    /// Process id, positive.
    std::int32_t processIdentifier = 0;

    bool operator==(const RunningApplication &) const = default;
};

/// The desktop's knowledge of which application is in front.
class Workspace
{
public:
    /// Receives the application that became active, or none if the desktop did not say which.
    using ActivationHandler = std::function<void(const std::optional<RunningApplication> &)>;

    virtual ~Workspace() = default;

    virtual Availability availability() const = 0;

    /// The application whose window has the keyboard now, our own included; none if there is none.
    virtual std::optional<RunningApplication> frontmostApplication() = 0;

    /// Calls the handler on the main thread each time an application becomes active, for as long
    /// as the subscription is held.
    virtual Subscription onActivation(ActivationHandler handler) = 0;

    /// Brings a window of ours to the front with the keyboard, as the person asks for it now: what
    /// they did in other programs meanwhile is no reason to refuse. False if the desktop knows no
    /// way to say so; then the toolkit's ordinary way is left.
    /// @param window the toolkit's id of a shown window.
    virtual bool bringToFront(std::uintptr_t window) = 0;

    /// Whether a translucent part of a window shows what lies behind it, now; where not, it would
    /// be black.
    virtual bool blendsWindows() = 0;

    /// Process id of this very program.
    virtual std::int32_t ownProcessIdentifier() const = 0;
};

} // namespace hmatnik::platform
