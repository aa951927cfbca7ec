#pragma once

#include "HandlerList.h"
#include "platform/TrayHosts.h"

namespace hmatnik::test {

/// A desktop whose panel comes when the test says so.
class FakeTrayHosts final : public platform::TrayHosts
{
public:
    platform::Availability availability() const override { return platform::Availability::yes(); }
    bool isPresent() override { return m_present; }
    platform::Subscription onArrival(std::function<void()> handler) override
    {
        return m_handlers.add(std::move(handler));
    }

    void arrive()
    {
        m_present = true;
        m_handlers.call();
    }
    int subscriptionCount() const { return m_handlers.count(); }

private:
    bool m_present = false;
    HandlerList<> m_handlers;
};

} // namespace hmatnik::test
