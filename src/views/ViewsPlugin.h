#pragma once

#include "views/ContextOverlayPanel.h"
#include "views/ViewsContext.h"
#include "views/ViewsModule.h"

#include <QObject>
#include <QPointer>

namespace hmatnik {

/// The loadable module's entry.
class ViewsPlugin final : public QObject, public ViewsModule
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "cz.hmatnik.Hmatnik.ViewsModule/3")
    Q_INTERFACES(hmatnik::ViewsModule)

public:
    std::unique_ptr<MainWindowInterface> createMainWindow(
        AppModel &model, UpdateChecker &updateChecker, const ShellActions &actions) override;
    std::unique_ptr<OverlayInterface>
    createOverlay(AppModel &model, const ShellActions &actions) override;
    std::unique_ptr<MenuBarInterface>
    createMenuBar(AppModel &model, const ShellActions &actions) override;
    void release() override;

private:
    ViewsContext &context(const AppModel &model);

    std::unique_ptr<ViewsContext> m_context;
    QPointer<ContextOverlayPanel> m_overlay;
};

} // namespace hmatnik
