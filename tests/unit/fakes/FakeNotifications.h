#pragma once

#include "platform/Notifications.h"

#include <QList>

#include <utility>

namespace hmatnik::test {

/// A desktop that remembers every message.
class FakeNotifications final : public platform::Notifications
{
public:
    platform::Availability availability() const override { return platform::Availability::yes(); }
    void show(const platform::Notification &notification, ActionHandler onAction) override
    {
        m_shown.append(notification);
        m_onAction = std::move(onAction);
    }

    /// All of them, in order.
    const QList<platform::Notification> &shown() const { return m_shown; }
    /// As if the person chose an action of the last one.
    void choose(const QString &action, const QString &activationToken = {}) const
    {
        m_onAction(action, activationToken);
    }

private:
    QList<platform::Notification> m_shown;
    ActionHandler m_onAction;
};

} // namespace hmatnik::test
