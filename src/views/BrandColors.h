#pragma once

#include <QRgb>

namespace hmatnik {

/// The gradient of the program's badge, the same in the light and the dark appearance.
namespace BrandColors {

inline constexpr QRgb top = 0xff3d9bff;
inline constexpr QRgb bottom = 0xff0066e0;

} // namespace BrandColors

} // namespace hmatnik
