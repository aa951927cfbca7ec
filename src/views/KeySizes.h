#pragma once

#include "model/KeyNames.h"

#include <QString>
#include <QtQmlIntegration>

namespace hmatnik {

/// Lengths of the drawn keyboard in layout units, all of them whole pixels of the screen: keys of
/// one width with gaps of one width, at every scale.
class KeySizes
{
    Q_GADGET
    QML_VALUE_TYPE(keySizes)
    Q_PROPERTY(double keyHeight MEMBER keyHeight CONSTANT)
    Q_PROPERTY(double keySpacing MEMBER keySpacing CONSTANT)
    Q_PROPERTY(double rowSpacing MEMBER rowSpacing CONSTANT)

public:
    KeySizes() = default;
    /// As written where the rows find room; otherwise the keys are narrowed evenly, so that the
    /// longest row takes the whole width.
    /// @param width what the rows may take, in layout units
    /// @param devicePixelRatio pixels per layout unit
    /// @param style whose keyboard is drawn
    KeySizes(double width, double devicePixelRatio, KeyStyle style = KeyStyle::mac);

    /// Width of a key by its label.
    Q_INVOKABLE double width(const QString &label) const;

    double keyWidth = 0;
    double spaceBarWidth = 0;
    double keyHeight = 0;
    double keySpacing = 0;
    double rowSpacing = 0;
};

} // namespace hmatnik
