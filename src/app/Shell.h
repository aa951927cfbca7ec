#pragma once

#include "views/ViewsModule.h"

namespace hmatnik {

/// What every screen may ask of the program.
namespace Shell {

ShellActions actions();

} // namespace Shell

} // namespace hmatnik
