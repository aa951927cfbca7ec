#include "views/ViewsPlugin.h"

#include "views/ContextOverlayPanel.h"
#include "views/MainWindowView.h"

namespace hmatnik {

std::unique_ptr<MainWindowInterface> ViewsPlugin::createMainWindow(
    AppModel &model, UpdateChecker &updateChecker, const ShellActions &actions)
{
    return std::make_unique<MainWindowView>(context(model), model, updateChecker, actions);
}

std::unique_ptr<OverlayInterface>
ViewsPlugin::createOverlay(AppModel &model, const ShellActions &actions)
{
    return std::make_unique<ContextOverlayPanel>(context(model), model, actions);
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
