#pragma once

#include "model/AppModel.h"
#include "views/ScreenWatch.h"
#include "views/TipsState.h"
#include "views/ViewsContext.h"
#include "views/ViewsModule.h"

#include <QQuickView>

namespace hmatnik {

/// A small window with tips for the application in front: as large as its content, without a
/// frame, with round corners.
class TipsPanel : public QQuickView
{
    Q_OBJECT

protected:
    /// @param cornerRadius in layout units
    TipsPanel(ViewsContext &context, AppModel &model, double cornerRadius);
    ~TipsPanel() override;

    /// Fills the window; after that it has its size.
    /// @param view the QML file's name, whose root takes the properties "tips" and "shell"
    /// @param actions what its buttons do
    void load(const QString &view, const ShellActions &actions);

    /// How large it is, or is about to be.
    QSize contentSize() const;

    /// The screens have changed while the panel was shown. One that is hidden finds its place when
    /// it is shown next.
    /// @param isScaled everything is drawn larger or smaller from now on; the panel is hidden now
    virtual void followScreens(bool isScaled) = 0;

    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void takeScreens();
    void roundCorners();

    AppModel &m_model;
    TipsState m_tips;
    double m_cornerRadius;
    ScreenWatch m_screens;
    /// Pixels of the screen to a layout unit, as the window was made for.
    double m_scale = 1;
};

} // namespace hmatnik
