#pragma once

#include "model/AppModel.h"

#include <QObject>
#include <QVariantList>
#include <QtQmlIntegration>

namespace hmatnik {

/// The row of modifier pills.
class FilterBarState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(QStringList captions READ captions NOTIFY captionsChanged)
    Q_PROPERTY(QStringList names READ names NOTIFY captionsChanged)
    Q_PROPERTY(QList<bool> selected READ selected NOTIFY filtersChanged)
    Q_PROPERTY(bool active READ isActive NOTIFY filtersChanged)

public:
    explicit FilterBarState(AppModel &model, QObject *parent = nullptr);

    /// What stands on the pills, in order.
    QStringList captions() const;
    /// The same in words, for screen readers.
    QStringList names() const;
    /// Whether each pill is on, in the same order.
    QList<bool> selected() const;
    /// True while any pill is on.
    bool isActive() const { return !m_model.modifierFilters().empty(); }

    /// Turns a pill on or off; numbers out of range are ignored.
    Q_INVOKABLE void toggle(int pill);
    /// Turns every pill off.
    Q_INVOKABLE void clear();

Q_SIGNALS:
    void filtersChanged();
    void captionsChanged();

private:
    AppModel &m_model;
};

} // namespace hmatnik
