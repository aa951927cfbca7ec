#pragma once

#include <functional>

namespace hmatnik {

/// Gives an integer of [0, bound), each with the same probability. The bound is at least 1.
using UniformInteger = std::function<int(int bound)>;

/// Draws from the system's random generator.
UniformInteger systemUniformInteger();

} // namespace hmatnik
