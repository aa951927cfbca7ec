#pragma once

#include "model/AppModel.h"
#include "platform/TrayHosts.h"
#include "views/ViewsModule.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

namespace hmatnik {

/// The program's item in the menu bar or tray: opens the window of tips, and offers its commands
/// as a menu where the desktop shows only menus.
class MenuBarExtra final : public QObject
{
    Q_OBJECT

public:
    /// The icon appears as soon as there is a host for it. The model must outlive this.
    MenuBarExtra(
        AppModel &model, std::shared_ptr<platform::TrayHosts> hosts, const ShellActions &actions);
    ~MenuBarExtra() override;

private:
    void showIcon();
    void nameApplication();
    void toggleTips();

    AppModel &m_model;
    std::shared_ptr<platform::TrayHosts> m_hosts;
    ShellActions m_actions;
    platform::Subscription m_arrival;
    std::unique_ptr<MenuBarInterface> m_tips;
    // The icon goes before its menu.
    std::unique_ptr<QMenu> m_menu;
    QAction *m_overlayAction = nullptr;
    std::unique_ptr<QSystemTrayIcon> m_icon;
};

} // namespace hmatnik
