#pragma once

#include "model/AppModel.h"
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

    void resizeEvent(QResizeEvent *event) override;

private:
    AppModel &m_model;
    TipsState m_tips;
    double m_cornerRadius;
};

} // namespace hmatnik
