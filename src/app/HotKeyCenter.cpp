#include "app/HotKeyCenter.h"

#include "app/MainWindow.h"

#include <QCoreApplication>
#include <QMetaObject>

namespace hmatnik {

namespace {

bool installed = false;

/// Kept for the life of the process; nobody reads it.
platform::Subscription &hotKeyRef()
{
    static auto *subscription = new platform::Subscription;
    return *subscription;
}

void hotKeyEventHandler()
{
    // The desktop waits for its handler; the window is opened after it has returned.
    QMetaObject::invokeMethod(qApp, &MainWindow::show, Qt::QueuedConnection);
}

} // namespace

void HotKeyCenter::install(platform::HotKeys &hotKeys)
{
    if (installed)
        return;
    installed = true;
    hotKeyRef() = hotKeys.registerControlOptionSpace(hotKeyEventHandler);
}

} // namespace hmatnik
