#pragma once

#include "platform/UrlOpener.h"

#include <QList>

namespace hmatnik::test {

/// Remembers the addresses that would have been opened.
class FakeUrlOpener final : public platform::UrlOpener
{
public:
    platform::Availability availability() const override { return m_availability; }

    void setAvailability(const platform::Availability &availability)
    {
        m_availability = availability;
    }
    /// The addresses that came through the check, in order.
    const QList<QUrl> &opened() const { return m_opened; }

protected:
    bool openWebAddress(const QUrl &url) override
    {
        m_opened.append(url);
        return m_availability.available;
    }

private:
    platform::Availability m_availability;
    QList<QUrl> m_opened;
};

} // namespace hmatnik::test
