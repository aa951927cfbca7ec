#include "views/Motion.h"

#include <cmath>
#include <numbers>

namespace hmatnik {

namespace {

// A SpringAnimation goes on in steps of 16 ms: with d for what is left of the way,
// v += spring * d - damping * v, then x += v * step. So, from one step to the next,
// d'' = (2 - damping - spring * step) * d' - (1 - damping) * d. An oscillator with the angular
// frequency w and the damping fraction z, looked at every step, follows
// d'' = 2 * e * cos(w * sqrt(1 - z * z) * step) * d' - e * e * d, with e = exp(-z * w * step).
constexpr double step = 0.016;

double frequency(double response)
{
    return 2 * std::numbers::pi / response;
}

double decay(double response, double dampingFraction)
{
    return std::exp(-dampingFraction * frequency(response) * step);
}

} // namespace

double Motion::damping(double response, double dampingFraction)
{
    const double e = decay(response, dampingFraction);
    return 1 - e * e;
}

double Motion::spring(double response, double dampingFraction)
{
    const double e = decay(response, dampingFraction);
    const double turn =
        frequency(response) * std::sqrt(1 - dampingFraction * dampingFraction) * step;
    return (1 + e * e - 2 * e * std::cos(turn)) / step;
}

} // namespace hmatnik
