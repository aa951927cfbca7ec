#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QtQmlIntegration>

namespace hmatnik {

/// The sheet of the most important built-in shortcuts, as the printed sticker has them.
class Sticker : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QVariantList cards READ cards CONSTANT)

public:
    explicit Sticker(QObject *parent = nullptr)
        : QObject(parent)
    {
    }

    /// Ids of its shortcuts. They are shown in the library's order, not in this one.
    static const QStringList &shortcutIds();

    /// Its shortcuts in the order in which they are shown.
    static QVariantList cards();
};

} // namespace hmatnik
