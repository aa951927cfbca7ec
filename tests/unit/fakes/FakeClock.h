#pragma once

#include "platform/Clock.h"

#include <QTimeZone>

namespace hmatnik::test {

/// A clock that stands still until the test sets it.
class FakeClock final : public platform::Clock
{
public:
    QDateTime now() const override { return m_now; }

    void setNow(const QDateTime &now) { m_now = now; }
    /// Sets a wall-clock time in a time zone.
    void setNow(QDate date, QTime time, const QTimeZone &zone)
    {
        m_now = QDateTime(date, time, zone);
    }
    /// The same moment, seen from another time zone.
    void setTimeZone(const QTimeZone &zone) { m_now = m_now.toTimeZone(zone); }

private:
    QDateTime m_now{QDate(2025, 1, 1), QTime(12, 0), QTimeZone("Europe/Prague")};
};

} // namespace hmatnik::test
