#include "views/ViewsPlugin.h"

#include "views/MainWindowView.h"
#include "views/MenuBarPanel.h"

namespace hmatnik {

std::unique_ptr<MainWindowInterface> ViewsPlugin::createMainWindow(
    AppModel &model, UpdateChecker &updateChecker, const ShellActions &actions)
{
    return std::make_unique<MainWindowView>(context(model), model, updateChecker, actions);
}

std::unique_ptr<OverlayInterface>
ViewsPlugin::createOverlay(AppModel &model, const ShellActions &actions)
{
    auto panel = std::make_unique<ContextOverlayPanel>(context(model), model, actions);
    m_overlay = panel.get();
    return panel;
}

std::unique_ptr<MenuBarInterface>
ViewsPlugin::createMenuBar(AppModel &model, const ShellActions &actions)
{
    auto panel = std::make_unique<MenuBarPanel>(context(model), model, actions);
    // Both may want the same corner, and no window manager can put the overlay below another.
    connect(panel.get(), &QWindow::visibleChanged, this, [this](bool isVisible) {
        if (m_overlay)
            m_overlay->giveWay(isVisible);
    });
    return panel;
}

void ViewsPlugin::release()
{
    m_context.reset();
}

ViewsContext &ViewsPlugin::context(const AppModel &model)
{
    if (!m_context)
        m_context = std::make_unique<ViewsContext>(model.desktop().appearance);
    return *m_context;
}

} // namespace hmatnik
