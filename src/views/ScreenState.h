#pragma once

#include "model/AppModel.h"

#include <QObject>
#include <QPointer>
#include <QtQmlIntegration>

namespace hmatnik {

/// The state of one screen that lives as long as the screen is shown. QML creates it inside the
/// screen and hands it the model; until then it is empty.
class ScreenState : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(hmatnik::AppModel *model READ model WRITE setModel NOTIFY changed REQUIRED)

public:
    AppModel *model() const { return m_model; }
    /// Sets the model, once.
    void setModel(AppModel *model);

Q_SIGNALS:
    /// Something that the screen shows may have changed.
    void changed();

protected:
    explicit ScreenState(QObject *parent)
        : QObject(parent)
    {
    }

    /// Follows the model; called when it is set.
    virtual void follow(AppModel &model) = 0;

private:
    QPointer<AppModel> m_model;
};

} // namespace hmatnik
