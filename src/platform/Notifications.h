#pragma once

#include "platform/Availability.h"

#include <QList>
#include <QString>

#include <functional>

namespace hmatnik::platform {

/// A short message beside what the person does.
struct Notification
{
    /// Something to choose in the message.
    struct Action
    {
        /// By which the handler is told; not shown.
        QString id;
        QString title;

        bool operator==(const Action &) const = default;
    };

    /// Texts are plain: whatever looks like markup is shown as it stands.
    QString title;
    QString body;
    QList<Action> actions;

    bool operator==(const Notification &) const = default;
};

/// Messages that the desktop shows for us, quietly: without a sound, gone by themselves, none while
/// the person doesn't want to be disturbed. What is still shown when the adapter is destroyed goes
/// with it: nobody would be there for its actions.
class Notifications
{
public:
    /// @param action id of the chosen action, always one that the message had.
    /// @param activationToken what the desktop wants to see of a window that comes to the front in
    /// answer; empty where it asks for nothing.
    using ActionHandler =
        std::function<void(const QString &action, const QString &activationToken)>;

    virtual ~Notifications() = default;

    virtual Availability availability() const = 0;

    /// Shows the message in place of the last one. Doesn't wait for the desktop; where it can't or
    /// won't show anything, nothing happens. A desktop without buttons leaves the actions out. The
    /// message goes when an action is chosen.
    /// @param onAction called on the main thread, once at most, while the message is the last one.
    virtual void show(const Notification &notification, ActionHandler onAction) = 0;
};

} // namespace hmatnik::platform
