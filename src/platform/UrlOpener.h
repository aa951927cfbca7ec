#pragma once

#include "platform/Availability.h"

#include <QString>
#include <QUrl>

namespace hmatnik::platform {

/// Shows web pages in the program that the person has chosen for them.
class UrlOpener
{
public:
    virtual ~UrlOpener() = default;

    virtual Availability availability() const = 0;

    /// True for an absolute http or https address with a host. Addresses come from outside, and
    /// every other scheme may start a program or open a file of the person's.
    static bool isWebAddress(const QUrl &url)
    {
        return url.isValid() && !url.host().isEmpty() &&
               (url.scheme() == QStringLiteral("https") || url.scheme() == QStringLiteral("http"));
    }

    /// Opens the address in the person's browser. False if it is no web address, or if the desktop
    /// could not start anything for it; whether the page then loads is not known.
    bool open(const QUrl &url) { return isWebAddress(url) && openWebAddress(url); }

protected:
    /// Opens an address that isWebAddress() has let through.
    virtual bool openWebAddress(const QUrl &url) = 0;
};

} // namespace hmatnik::platform
