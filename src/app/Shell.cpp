#include "app/Shell.h"

#include "app/ContextOverlay.h"
#include "app/MainWindow.h"

#include <QCoreApplication>

namespace hmatnik {

ShellActions Shell::actions()
{
    return {
        .toggleOverlay = ContextOverlay::toggle,
        .showMainWindow = MainWindow::show,
        .importSystemShortcuts = MainWindow::importSystemShortcuts,
        .quit = QCoreApplication::quit};
}

} // namespace hmatnik
