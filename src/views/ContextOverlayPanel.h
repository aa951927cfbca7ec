#pragma once

#include "views/TipsPanel.h"

namespace hmatnik {

/// The floating panel of tips: above other windows, and never with the keyboard, which stays with
/// the application in front.
class ContextOverlayPanel final : public TipsPanel, public OverlayInterface
{
    Q_OBJECT

public:
    ContextOverlayPanel(ViewsContext &context, AppModel &model, const ShellActions &actions);

    bool isShown() const override { return isVisible(); }
    void showOnMainScreen() override;
    void hidePanel() override { hide(); }
    /// Goes below all other windows, or comes back above them.
    void giveWay(bool isGivingWay);

protected:
    void followScreens(bool isScaled) override;

private:
    void moveToCorner();

    bool m_isGivingWay = false;
};

} // namespace hmatnik
