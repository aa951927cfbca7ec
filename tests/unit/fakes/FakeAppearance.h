#pragma once

#include "HandlerList.h"
#include "platform/Appearance.h"

namespace hmatnik::test {

/// A desktop whose colours, contrast and motion the test chooses.
class FakeAppearance final : public platform::Appearance
{
public:
    ColorScheme colorScheme() const override { return m_colorScheme; }
    bool reducedMotion() const override { return m_reducedMotion; }
    bool highContrast() const override { return m_highContrast; }
    platform::Subscription onChange(std::function<void()> handler) override
    {
        return m_handlers.add(std::move(handler));
    }

    /// Changes the answer and tells the subscribers.
    void setColorScheme(ColorScheme colorScheme)
    {
        m_colorScheme = colorScheme;
        m_handlers.call();
    }
    void setReducedMotion(bool reducedMotion)
    {
        m_reducedMotion = reducedMotion;
        m_handlers.call();
    }
    void setHighContrast(bool highContrast)
    {
        m_highContrast = highContrast;
        m_handlers.call();
    }
    int subscriberCount() const { return m_handlers.count(); }

private:
    ColorScheme m_colorScheme = ColorScheme::NoPreference;
    bool m_reducedMotion = false;
    bool m_highContrast = false;
    HandlerList<> m_handlers;
};

} // namespace hmatnik::test
