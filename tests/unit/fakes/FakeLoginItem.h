#pragma once

#include "platform/LoginItem.h"

#include <QList>

namespace hmatnik::test {

/// A login item that can refuse, or wait for the person's approval.
class FakeLoginItem final : public platform::LoginItem
{
public:
    platform::Availability availability() const override { return m_availability; }
    bool isEnabled() const override { return m_enabled; }
    std::optional<QString> setEnabled(bool enabled) override
    {
        m_requests.append(enabled);
        if (m_error)
            return m_error;
        m_enabled = enabled && !m_needsApproval;
        return std::nullopt;
    }

    void setAvailability(const platform::Availability &availability)
    {
        m_availability = availability;
    }
    /// Sets the desktop's answer, as if changed elsewhere.
    void setState(bool enabled) { m_enabled = enabled; }
    /// The text with which every request fails from now on; none: requests succeed.
    void setError(const std::optional<QString> &error) { m_error = error; }
    /// Registrations succeed but stay disabled until approved elsewhere.
    void setNeedsApproval(bool needsApproval) { m_needsApproval = needsApproval; }
    /// What setEnabled() was asked for, in order.
    const QList<bool> &requests() const { return m_requests; }

private:
    platform::Availability m_availability;
    bool m_enabled = false;
    bool m_needsApproval = false;
    std::optional<QString> m_error;
    QList<bool> m_requests;
};

} // namespace hmatnik::test
