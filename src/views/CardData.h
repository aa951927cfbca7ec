#pragma once

#include "model/KeyNames.h"
#include "model/Shortcut.h"

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>

namespace hmatnik {

/// What a shortcut's card shows.
class CardData
{
    Q_GADGET
    QML_VALUE_TYPE(cardData)
    Q_PROPERTY(QString id MEMBER id CONSTANT)
    Q_PROPERTY(QString title MEMBER title CONSTANT)
    Q_PROPERTY(QString detail MEMBER detail CONSTANT)
    Q_PROPERTY(QStringList keys MEMBER keys CONSTANT)
    Q_PROPERTY(QString categoryName MEMBER categoryName CONSTANT)
    Q_PROPERTY(QString categorySymbol MEMBER categorySymbol CONSTANT)
    Q_PROPERTY(bool favorite MEMBER favorite CONSTANT)
    Q_PROPERTY(QString spoken MEMBER spoken CONSTANT)

public:
    CardData() = default;
    /// @param style whose names the keys have
    CardData(const Shortcut &shortcut, bool isFavorite, KeyStyle style);

    bool operator==(const CardData &other) const = default;

    QString id;
    QString title;
    QString detail;
    /// What stands on the key caps.
    QStringList keys;
    QString categoryName;
    QString categorySymbol;
    bool favorite = false;
    /// Detail and keys in words, for screen readers.
    QString spoken;
};

} // namespace hmatnik
