#include "platform/linux/BrowserUrlOpener.h"

#include <QDesktopServices>

namespace hmatnik::platform {

bool BrowserUrlOpener::openWebAddress(const QUrl &url)
{
    return QDesktopServices::openUrl(url);
}

} // namespace hmatnik::platform
