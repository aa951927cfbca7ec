#pragma once

#include "views/ViewsModule.h"

namespace hmatnik {

/// Loads the module that holds every screen.
namespace ViewsLoader {

/// The module, loaded at the first call. If it can't be loaded, the person is told why in a dialog
/// and the answer is null.
ViewsModule *module();

/// Lets go of what the windows shared, if the module was ever loaded.
void release();

} // namespace ViewsLoader

} // namespace hmatnik
