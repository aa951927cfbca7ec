#include "views/ViewsContext.h"

#include "views/AccessibleControls.h"
#include "views/GlowProvider.h"
#include "views/RendererChoice.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QStyleHints>

// Made by the build from the types that QML may use.
void qml_register_types_Hmatnik();

namespace hmatnik {

using namespace Qt::StringLiterals;

ViewsContext::ViewsContext(const std::shared_ptr<platform::Appearance> &appearance)
    : m_theme(appearance)
{
    // The views are loaded by their address and not through an import that would do this.
    qml_register_types_Hmatnik();
    RendererChoice::apply();
    improveAccessibleControls();
    // Text drawn by the platform's rasteriser is crisper at these sizes, and spares the memory of
    // distance fields. A blinking caret would repaint the window twice a second for nothing.
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    QGuiApplication::styleHints()->setCursorFlashTime(0);

    Theme::setInstance(&m_theme);
    // Where the build puts QML modules by default from Qt 6.5 on.
    m_engine.addImportPath(u"qrc:/qt/qml"_s);
    m_engine.addImageProvider(u"glow"_s, new GlowProvider);
}

} // namespace hmatnik
