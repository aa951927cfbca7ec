#pragma once

#include "model/AppModel.h"
#include "views/TipsState.h"
#include "views/ViewsContext.h"
#include "views/ViewsModule.h"

#include <QElapsedTimer>
#include <QQuickView>

namespace hmatnik {

/// The small window of the menu-bar item. It has the keyboard while it is shown, and goes as soon
/// as it loses it.
class MenuBarPanel final : public QQuickView, public MenuBarInterface
{
    Q_OBJECT

public:
    MenuBarPanel(ViewsContext &context, AppModel &model, const ShellActions &actions);
    ~MenuBarPanel() override;

    void toggleBeside(const QRect &icon) override;

protected:
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void present(const QRect &icon);

    TipsState m_tips;
    std::shared_ptr<platform::Workspace> m_workspace;
    QElapsedTimer m_sinceFocusLoss;
};

} // namespace hmatnik
