#pragma once

#include "views/TipsPanel.h"

#include <QElapsedTimer>

namespace hmatnik {

/// The small window of the menu-bar item. It has the keyboard while it is shown, and goes as soon
/// as it loses it.
class MenuBarPanel final : public TipsPanel, public MenuBarInterface
{
    Q_OBJECT

public:
    MenuBarPanel(ViewsContext &context, AppModel &model, const ShellActions &actions);

    void toggleBeside(const QRect &icon) override;

protected:
    void followScreens(bool isScaled) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void present(const QRect &icon);

    std::shared_ptr<platform::Workspace> m_workspace;
    QElapsedTimer m_sinceFocusLoss;
};

} // namespace hmatnik
