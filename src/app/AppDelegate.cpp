#include "app/AppDelegate.h"

#include "app/MainWindow.h"

namespace hmatnik {

using namespace Qt::StringLiterals;

void AppDelegate::applicationDidFinishLaunching()
{
    const QString key = u"hasLaunchedBefore"_s;
    const QVariant launchedBefore = m_preferences.value(key);
    if (launchedBefore != QVariant(true) || launchedBefore.typeId() != QMetaType::Bool) {
        m_preferences.setValue(key, true);
        MainWindow::show();
    }
#if HMATNIK_OPEN_AT_EVERY_START
    MainWindow::show(); // Until there is a menu-bar item that could open it.
#endif
}

void AppDelegate::applicationShouldHandleReopen()
{
    MainWindow::show();
}

} // namespace hmatnik
