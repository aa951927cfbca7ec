#pragma once

#include "FakeElement.h"
#include "HandlerList.h"
#include "platform/Accessibility.h"

#include <QList>
#include <QPair>

#include <atomic>
#include <functional>
#include <map>

namespace hmatnik::test {

/// Other programs' windows as the test scripts them. Script it before a background import starts;
/// the counters may be read at any time.
class FakeAccessibility final : public platform::Accessibility
{
public:
    platform::Availability availability() const override { return m_availability; }
    bool isTrusted() const override { return m_trusted; }
    bool waitForTrust(const std::stop_token &stop) override
    {
        if (m_beforeTrust)
            m_beforeTrust(stop);
        return m_trusted;
    }
    platform::Subscription onTrustChange(std::function<void()> handler) override
    {
        return m_trustHandlers.add(std::move(handler));
    }
    void requestTrust() override { ++m_trustRequests; }

    platform::AccessibleElementPtr
    applicationElement(std::int32_t processIdentifier, const std::stop_token &stop) override
    {
        ++m_applicationQueries;
        if (m_beforeApplicationElement)
            m_beforeApplicationElement(stop);
        const auto found = m_applications.find(processIdentifier);
        return found == m_applications.end() ? FakeElement::make() : found->second;
    }

    ElementAtPosition elementAtPosition(float x, float y) override
    {
        m_positionQueries.append({x, y});
        return m_atPosition;
    }

    void setAvailability(const platform::Availability &availability)
    {
        m_availability = availability;
    }
    void setTrusted(bool trusted)
    {
        m_trusted = trusted;
        m_trustHandlers.call();
    }
    int trustRequests() const { return m_trustRequests; }
    int applicationQueries() const { return m_applicationQueries; }

    /// What applicationElement() gives for a process; others get an element that can't be read.
    void setApplication(std::int32_t pid, const platform::AccessibleElementPtr &element)
    {
        m_applications[pid] = element;
    }
    /// The same, with a readable menu bar of the given children.
    void setMenuBar(std::int32_t pid, const std::vector<platform::AccessibleElementPtr> &children)
    {
        const auto menuBar = FakeElement::make();
        menuBar->set(u"AXChildren", children);
        const auto application = FakeElement::make();
        application->set(u"AXMenuBar", platform::AccessibleElementPtr(menuBar));
        setApplication(pid, application);
    }
    using Hook = std::function<void(const std::stop_token &)>;
    /// Called on the asking thread before waitForTrust() answers.
    void setBeforeTrust(Hook hook) { m_beforeTrust = std::move(hook); }
    /// Called on the asking thread before applicationElement() answers; lets a test hold an import
    /// half-way.
    void setBeforeApplicationElement(Hook hook) { m_beforeApplicationElement = std::move(hook); }

    /// What elementAtPosition() gives, wherever it is asked.
    void setElementAtPosition(const platform::AccessibleElementPtr &element, int error = 0)
    {
        m_atPosition = {error, element};
    }
    const QList<QPair<float, float>> &positionQueries() const { return m_positionQueries; }

private:
    platform::Availability m_availability;
    std::atomic<bool> m_trusted = true;
    std::atomic<int> m_trustRequests = 0;
    std::atomic<int> m_applicationQueries = 0;
    std::map<std::int32_t, platform::AccessibleElementPtr> m_applications;
    Hook m_beforeTrust;
    Hook m_beforeApplicationElement;
    HandlerList<> m_trustHandlers;
    ElementAtPosition m_atPosition{-25200, nullptr};
    QList<QPair<float, float>> m_positionQueries;
};

} // namespace hmatnik::test
