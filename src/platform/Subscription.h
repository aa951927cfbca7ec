#pragma once

#include <functional>
#include <utility>

namespace hmatnik::platform {

/// Handle of a registration with the desktop. Letting go of it ends the registration; after that
/// the handler is never called again.
class [[nodiscard]] Subscription
{
public:
    Subscription() = default;
    /// @param cancel ends the registration; called at most once.
    explicit Subscription(std::function<void()> cancel)
        : m_cancel(std::move(cancel))
    {
    }
    Subscription(const Subscription &) = delete;
    Subscription &operator=(const Subscription &) = delete;
    Subscription(Subscription &&other) noexcept
        : m_cancel(std::exchange(other.m_cancel, {}))
    {
    }
    Subscription &operator=(Subscription &&other) noexcept
    {
        if (this != &other) {
            cancel();
            m_cancel = std::exchange(other.m_cancel, {});
        }
        return *this;
    }
    ~Subscription() { cancel(); }

    /// Ends the registration now; harmless on an empty handle.
    void cancel()
    {
        if (auto end = std::exchange(m_cancel, {}))
            end();
    }

    /// True while the registration lasts.
    explicit operator bool() const { return static_cast<bool>(m_cancel); }

private:
    std::function<void()> m_cancel;
};

} // namespace hmatnik::platform
