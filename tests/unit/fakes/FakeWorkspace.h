#pragma once

#include "HandlerList.h"
#include "platform/Workspace.h"

namespace hmatnik::test {

/// A desktop whose application in front is whichever the test says.
class FakeWorkspace final : public platform::Workspace
{
public:
    static constexpr std::int32_t ownPid = 4242;

    platform::Availability availability() const override { return m_availability; }
    std::optional<platform::RunningApplication> frontmostApplication() override
    {
        ++m_frontmostQueries;
        return m_frontmost;
    }
    platform::Subscription onActivation(ActivationHandler handler) override
    {
        return m_handlers.add(std::move(handler));
    }
    bool bringToFront(std::uintptr_t) override { return false; }
    bool blendsWindows() override { return false; }
    std::int32_t ownProcessIdentifier() const override { return ownPid; }

    void setAvailability(const platform::Availability &availability)
    {
        m_availability = availability;
    }
    /// Sets what is in front without telling anybody.
    void setFrontmost(const std::optional<platform::RunningApplication> &application)
    {
        m_frontmost = application;
    }
    /// Tells the subscribers that an application became active; none: the desktop did not say
    /// which.
    void activate(const std::optional<platform::RunningApplication> &application)
    {
        if (application)
            m_frontmost = application;
        m_handlers.call(application);
    }
    void activate(const QString &name, std::int32_t pid)
    {
        activate(platform::RunningApplication{name, pid});
    }
    int subscriberCount() const { return m_handlers.count(); }
    int frontmostQueries() const { return m_frontmostQueries; }

private:
    platform::Availability m_availability;
    std::optional<platform::RunningApplication> m_frontmost;
    HandlerList<const std::optional<platform::RunningApplication> &> m_handlers;
    int m_frontmostQueries = 0;
};

} // namespace hmatnik::test
