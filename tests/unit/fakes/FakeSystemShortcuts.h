#pragma once

#include "platform/SystemShortcuts.h"

#include <utility>

namespace hmatnik::test {

/// A desktop with settings that the test writes; at first one that has none, like a Mac.
class FakeSystemShortcuts final : public platform::SystemShortcuts
{
public:
    platform::Availability availability() const override { return m_availability; }
    void read(Handler handler) override
    {
        ++m_reads;
        m_handler = std::move(handler);
    }

    void setAvailable() { m_availability = platform::Availability::yes(); }
    /// Answers the last question.
    void answer(const Result &result) const
    {
        // It may ask the next one.
        const Handler handler = m_handler;
        handler(result);
    }
    void answer(
        const QList<platform::SystemShortcut> &shortcuts, const QStringList &withoutKeys = {}) const
    {
        answer(platform::SystemShortcutSettings{shortcuts, withoutKeys});
    }
    int reads() const { return m_reads; }

private:
    platform::Availability m_availability = platform::Availability::no(QStringLiteral("zkouška"));
    Handler m_handler;
    int m_reads = 0;
};

} // namespace hmatnik::test
