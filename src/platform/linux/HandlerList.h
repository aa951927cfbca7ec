#pragma once

#include "platform/Subscription.h"

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace hmatnik::platform {

/// The subscribers of one notification, in the order in which they came. Subscriptions may end
/// while the list is being called, and may outlive the list. Main thread only.
template <typename... Arguments>
class HandlerList
{
public:
    using Handler = std::function<void(Arguments...)>;

    /// @param onEnd called after the subscription has ended, if the list is still there.
    Subscription add(Handler handler, std::function<void()> onEnd = {})
    {
        const int id = m_handlers->next++;
        m_handlers->byId.emplace(id, std::move(handler));
        return Subscription([weak = std::weak_ptr(m_handlers), id, onEnd = std::move(onEnd)] {
            const auto handlers = weak.lock();
            if (!handlers)
                return;
            handlers->byId.erase(id);
            if (onEnd)
                onEnd();
        });
    }

    void call(const Arguments &...arguments) const
    {
        // Handlers come and go while they are called: go by number, and hold what is running.
        const auto handlers = m_handlers;
        const int end = handlers->next;
        for (auto at = handlers->byId.begin(); at != handlers->byId.end() && at->first < end;) {
            const int id = at->first;
            const Handler handler = at->second;
            handler(arguments...);
            at = handlers->byId.upper_bound(id);
        }
    }

    bool isEmpty() const { return m_handlers->byId.empty(); }

private:
    struct Handlers
    {
        int next = 0;
        std::map<int, Handler> byId;
    };
    std::shared_ptr<Handlers> m_handlers = std::make_shared<Handlers>();
};

} // namespace hmatnik::platform
