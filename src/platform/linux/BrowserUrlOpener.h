#pragma once

#include "platform/UrlOpener.h"

namespace hmatnik::platform {

/// Opens addresses in the browser that the desktop names, as xdg-open finds it. Needs a
/// QGuiApplication.
class BrowserUrlOpener final : public UrlOpener
{
public:
    Availability availability() const override { return Availability::yes(); }

protected:
    bool openWebAddress(const QUrl &url) override;
};

} // namespace hmatnik::platform
