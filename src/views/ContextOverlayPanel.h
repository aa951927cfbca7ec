#pragma once

#include "model/AppModel.h"
#include "views/TipsState.h"
#include "views/ViewsContext.h"
#include "views/ViewsModule.h"

#include <QQuickView>

namespace hmatnik {

/// The floating panel of tips: above other windows, and never with the keyboard, which stays with
/// the application in front.
class ContextOverlayPanel final : public QQuickView, public OverlayInterface
{
    Q_OBJECT

public:
    ContextOverlayPanel(ViewsContext &context, AppModel &model, const ShellActions &actions);
    ~ContextOverlayPanel() override;

    bool isShown() const override { return isVisible(); }
    void showOnMainScreen() override;
    void hidePanel() override { hide(); }
    /// Goes below all other windows, or comes back above them.
    void giveWay(bool isGivingWay);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    TipsState m_tips;
    bool m_isGivingWay = false;
};

} // namespace hmatnik
