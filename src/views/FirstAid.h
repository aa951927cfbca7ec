#pragma once

#include <QObject>
#include <QVariantList>
#include <QtQmlIntegration>

namespace hmatnik {

/// What the first-aid screen shows.
class FirstAid : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QVariantList situations READ situations CONSTANT)

public:
    explicit FirstAid(QObject *parent = nullptr)
        : QObject(parent)
    {
    }

    /// The situations in order, as maps of "title", "symbol" and "cards".
    static QVariantList situations();
};

} // namespace hmatnik
