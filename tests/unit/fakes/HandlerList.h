#pragma once

#include "platform/Subscription.h"

#include <functional>
#include <map>
#include <memory>

namespace hmatnik::test {

/// The subscribers of one fake notification, in the order in which they came.
template <typename... Arguments>
class HandlerList
{
public:
    using Handler = std::function<void(Arguments...)>;

    platform::Subscription add(Handler handler)
    {
        const int id = m_handlers->next++;
        m_handlers->byId.emplace(id, std::move(handler));
        return platform::Subscription([weak = std::weak_ptr(m_handlers), id] {
            if (const auto handlers = weak.lock())
                handlers->byId.erase(id);
        });
    }

    void call(const Arguments &...arguments) const
    {
        // A handler may end its own registration, so walk a copy.
        const auto handlers = m_handlers->byId;
        for (const auto &[id, handler] : handlers)
            handler(arguments...);
    }

    int count() const { return static_cast<int>(m_handlers->byId.size()); }

private:
    struct Handlers
    {
        int next = 0;
        std::map<int, Handler> byId;
    };
    std::shared_ptr<Handlers> m_handlers = std::make_shared<Handlers>();
};

} // namespace hmatnik::test
