#pragma once

#include "views/ScreenState.h"

#include <QVariantList>

namespace hmatnik {

/// What the first-aid screen shows.
// The base is named in full, because that is how the QML tools look it up.
class FirstAid : public hmatnik::ScreenState
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QVariantList situations READ situations NOTIFY changed)
    Q_PROPERTY(bool startupOfMacShown READ startupOfMacShown NOTIFY changed)

public:
    explicit FirstAid(QObject *parent = nullptr)
        : ScreenState(parent)
    {
    }

    /// The situations in order, as maps of "title", "symbol" and "cards"; none of them is without
    /// cards.
    QVariantList situations() const;
    /// Whether the advice about starting a Mac is of use: with the library of a Mac.
    bool startupOfMacShown() const;

protected:
    void follow(AppModel &model) override;
};

} // namespace hmatnik
