#pragma once

#include "platform/Availability.h"
#include "platform/Subscription.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <functional>
#include <memory>
#include <stop_token>
#include <variant>
#include <vector>

namespace hmatnik::platform {

class AccessibleElement;
using AccessibleElementPtr = std::shared_ptr<const AccessibleElement>;

/// What an attribute read gives: an error code (0 is success) and, on success, a value.
struct AttributeResult
{
    using Value = std::variant<
        std::monostate, QString, std::int64_t, AccessibleElementPtr,
        std::vector<AccessibleElementPtr>>;
    int error = 0;
    Value value;
};

/// One element (a menu bar, a menu, an item, a button) of some application's window.
class AccessibleElement
{
public:
    virtual ~AccessibleElement() = default;

    /// Reads one of "AXMenuBar", "AXChildren", "AXTitle", "AXRole", "AXMenuItemCmdChar" and
    /// "AXMenuItemCmdModifiers". Asks the other process, so it may take long or fail; may be
    /// called from any thread.
    virtual AttributeResult attribute(QStringView name) const = 0;
};

/// Looks into other programs' windows, as assistive technologies do.
class Accessibility
{
public:
    virtual ~Accessibility() = default;

    virtual Availability availability() const = 0;

    /// Whether this program may look into others now. A desktop that has not said it yet is not
    /// waited for longer than a person notices; until then: false. Main thread only.
    virtual bool isTrusted() const = 0;

    /// The same, but waits some seconds for a desktop that has not said it yet. May be called from
    /// any thread but the main one.
    /// @param stop ends the wait
    virtual bool waitForTrust(const std::stop_token &stop) = 0;

    /// Calls the handler on the main thread each time that isTrusted() has become another, for as
    /// long as the subscription is held.
    virtual Subscription onTrustChange(std::function<void()> handler) = 0;

    /// Asks the desktop to grant the permission; the answer shows in isTrusted() later.
    /// May be called from any thread.
    virtual void requestTrust() = 0;

    /// The element of a whole application; never null, but its reads fail if there is no such
    /// process or it does not answer. May be called from any thread.
    /// @param stop ends the element's reads, which then fail
    virtual AccessibleElementPtr
    applicationElement(std::int32_t processIdentifier, const std::stop_token &stop) = 0;

    /// Result of a look-up by position: an error code (0 is success) and the element, if any.
    struct ElementAtPosition
    {
        int error = 0;
        AccessibleElementPtr element;
    };
    /// The element at a point of the screen, in the coordinates that MouseMonitor reports.
    virtual ElementAtPosition elementAtPosition(float x, float y) = 0;
};

} // namespace hmatnik::platform
