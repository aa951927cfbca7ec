#include "app/AppDelegate.h"

namespace hmatnik {

using namespace Qt::StringLiterals;

AppDelegate::AppDelegate(platform::Preferences &preferences, std::function<void()> showMainWindow)
    : m_preferences(preferences)
    , m_showMainWindow(std::move(showMainWindow))
{
}

void AppDelegate::applicationDidFinishLaunching()
{
    const QString key = u"hasLaunchedBefore"_s;
    const QVariant launchedBefore = m_preferences.value(key);
    if (launchedBefore != QVariant(true) || launchedBefore.typeId() != QMetaType::Bool) {
        m_preferences.setValue(key, true);
        m_showMainWindow();
    }
}

void AppDelegate::applicationShouldHandleReopen()
{
    m_showMainWindow();
}

} // namespace hmatnik
