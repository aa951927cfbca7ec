#pragma once

#include <QObject>
#include <QtQmlIntegration>

namespace hmatnik {

/// Divides lengths of the layout so that every part is a whole number of the screen's pixels:
/// parts that are alike then look alike. Ratios are pixels per layout unit.
class PixelGrid : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// The nearest length of whole pixels.
    Q_INVOKABLE static double snapped(double length, double ratio);

    /// Width of one of equal columns that fill a width together with the gaps between them. What
    /// does not divide goes to the first ones, a pixel each. Never below 0.
    /// @param column counted from 0
    /// @param spacing of a gap; it counts as snapped()
    Q_INVOKABLE static double
    columnWidth(int column, int columns, double width, double spacing, double ratio);
};

} // namespace hmatnik
