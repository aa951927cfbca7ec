#pragma once

#include "views/ScreenState.h"

#include <QStringList>
#include <QVariantList>

namespace hmatnik {

/// The sheet of the most important built-in shortcuts, as the printed sticker has them.
// The base is named in full, because that is how the QML tools look it up.
class Sticker : public hmatnik::ScreenState
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QVariantList cards READ cards NOTIFY changed)

public:
    explicit Sticker(QObject *parent = nullptr)
        : ScreenState(parent)
    {
    }

    /// Ids of its shortcuts. They are shown in the library's order, not in this one.
    static const QStringList &shortcutIds();

    /// Its shortcuts in the order in which they are shown.
    QVariantList cards() const;

protected:
    void follow(AppModel &model) override;
};

} // namespace hmatnik
