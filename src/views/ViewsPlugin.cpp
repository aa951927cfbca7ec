#include "views/ViewsPlugin.h"

#include "views/MainWindowView.h"

#include <QGuiApplication>
#include <QStyleHints>

// Made by the build from the types that QML may use.
void qml_register_types_Hmatnik();

namespace hmatnik {

std::unique_ptr<MainWindowInterface>
ViewsPlugin::createMainWindow(AppModel &model, const ShellActions &actions)
{
    // The views are loaded by their address and not through an import that would do this.
    qml_register_types_Hmatnik();
    // Text drawn by the platform's rasteriser is crisper at these sizes, and spares the memory of
    // distance fields. A blinking caret would repaint the window twice a second for nothing.
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    return std::make_unique<MainWindowView>(model, actions);
}

} // namespace hmatnik
