#pragma once

#include <QObject>
#include <QtQmlIntegration>

namespace hmatnik {

/// Constants of the animations.
class Motion : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// `spring` of a SpringAnimation that moves as a damped harmonic oscillator does.
    /// @param response period, in seconds, that it would swing with undamped
    /// @param dampingFraction 1 is critical; below that it overshoots
    Q_INVOKABLE static double spring(double response, double dampingFraction);
    /// `damping` of the same one.
    Q_INVOKABLE static double damping(double response, double dampingFraction);
};

} // namespace hmatnik
