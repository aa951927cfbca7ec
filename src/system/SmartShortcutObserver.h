#pragma once

#include "platform/Accessibility.h"
#include "platform/MouseMonitor.h"
#include "platform/Subscription.h"

#include <QObject>
#include <QPointF>
#include <QString>

#include <functional>
#include <memory>

namespace hmatnik {

/// Notices menu items that the person chooses with the mouse, in any application. Knows nothing of
/// shortcuts: it turns a press on a menu item into that item's title.
class SmartShortcutObserver : public QObject
{
    Q_OBJECT

public:
    using MenuAction = std::function<void(const QString &title)>;

    /// A stopped observer.
    /// @param onMenuAction called on the main thread with each chosen item's title.
    SmartShortcutObserver(
        std::shared_ptr<platform::MouseMonitor> mouseMonitor,
        std::shared_ptr<platform::Accessibility> accessibility, MenuAction onMenuAction);

    /// Watches from now on. Does nothing if it does already, or without permission to look into
    /// other programs; the permission is not asked for.
    void start();
    /// Watches no longer.
    void stop();

private:
    void inspectElement(QPointF position) const;

    std::shared_ptr<platform::MouseMonitor> m_mouseMonitor;
    std::shared_ptr<platform::Accessibility> m_accessibility;
    MenuAction m_onMenuAction;
    platform::Subscription m_monitor;
};

} // namespace hmatnik
