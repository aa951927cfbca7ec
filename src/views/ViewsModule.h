#pragma once

#include "views/MenuTable.h"

#include <QRect>
#include <QtPlugin>

#include <functional>
#include <memory>

namespace hmatnik {

class AppModel;
class UpdateChecker;

/// What the screens ask of the program around them.
struct ShellActions
{
    /// Shows or hides the floating panel of tips.
    std::function<void()> toggleOverlay;
    /// Brings the main window to the front.
    std::function<void()> showMainWindow;
    /// Imports the desktop's own shortcuts.
    std::function<void()> importSystemShortcuts;
    /// Ends the program.
    std::function<void()> quit;
};

/// The main window as the program sees it.
class MainWindowInterface
{
public:
    virtual ~MainWindowInterface() = default;

    /// Replaces the window's menu bar.
    virtual void setMenu(const MenuTable &menu) = 0;
    /// Shows the window where it was left, in front of others and with the keyboard.
    virtual void present() = 0;
    /// Whether it is on the screen, perhaps behind others; minimised it is not.
    virtual bool isShown() const = 0;
};

/// The floating panel of tips as the program sees it.
class OverlayInterface
{
public:
    virtual ~OverlayInterface() = default;

    virtual bool isShown() const = 0;
    /// Shows the panel in the top right corner of the main screen's work area, worked out anew,
    /// and leaves the keyboard where it is.
    virtual void showOnMainScreen() = 0;
    virtual void hidePanel() = 0;
};

/// The small window of the menu-bar item as the program sees it.
class MenuBarInterface
{
public:
    virtual ~MenuBarInterface() = default;

    /// Shows the window beside the item's icon, with the keyboard; hides it if it is shown.
    /// @param icon the icon's place on the desktop; empty where the desktop does not tell
    virtual void toggleBeside(const QRect &icon) = 0;
};

/// The door to every screen. Lives in a module of its own that is loaded when a window is first
/// asked for, so that a program waiting in the background does not carry Qt Quick.
class ViewsModule
{
public:
    virtual ~ViewsModule() = default;

    /// Makes the main window, hidden; there is one per process. Model and checker must
    /// outlive it.
    virtual std::unique_ptr<MainWindowInterface> createMainWindow(
        AppModel &model, UpdateChecker &updateChecker, const ShellActions &actions) = 0;

    /// Makes the floating panel, hidden; there is one per process. The model must outlive it.
    virtual std::unique_ptr<OverlayInterface>
    createOverlay(AppModel &model, const ShellActions &actions) = 0;

    /// Makes the menu-bar item's window, hidden; there is one per process. The model must outlive
    /// it.
    virtual std::unique_ptr<MenuBarInterface>
    createMenuBar(AppModel &model, const ShellActions &actions) = 0;

    /// Lets go of what the windows shared; for the end of the process, after the last window.
    virtual void release() = 0;
};

} // namespace hmatnik

Q_DECLARE_INTERFACE(hmatnik::ViewsModule, "cz.hmatnik.Hmatnik.ViewsModule/3")
