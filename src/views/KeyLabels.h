#pragma once

#include "views/KeyNames.h"

#include <QObject>
#include <QtQmlIntegration>

namespace hmatnik {

/// What stands on key caps, as QML sees it.
class KeyLabels : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE static QString shown(const QString &token) { return KeyNames::shown(token); }
};

} // namespace hmatnik
