#pragma once

#include "model/AppModel.h"
#include "views/ViewsModule.h"

#include <QObject>
#include <QtQmlIntegration>

namespace hmatnik {

/// What buttons ask of the program around their window.
class ShellBridge : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(QString version READ version CONSTANT)

public:
    ShellBridge(AppModel &model, const ShellActions &actions, QObject *parent)
        : QObject(parent)
        , m_model(model)
        , m_actions(actions)
    {
    }

    /// Version of the running program.
    QString version() const;

    Q_INVOKABLE void toggleOverlay() const { m_actions.toggleOverlay(); }
    Q_INVOKABLE void showMainWindow() const { m_actions.showMainWindow(); }
    Q_INVOKABLE void quit() const { m_actions.quit(); }
    Q_INVOKABLE void importFrontmostMenu() const { m_model.importFrontmostMenu(); }

private:
    AppModel &m_model;
    ShellActions m_actions;
};

} // namespace hmatnik
