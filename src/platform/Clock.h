#pragma once

#include <QDateTime>

namespace hmatnik::platform {

/// The time of day, so that tests can choose it.
class Clock
{
public:
    virtual ~Clock() = default;

    /// Now, in the person's time zone.
    virtual QDateTime now() const = 0;
};

/// The machine's own clock.
class SystemClock final : public Clock
{
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};

} // namespace hmatnik::platform
