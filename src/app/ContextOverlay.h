#pragma once

namespace hmatnik {

class AppModel;

/// The process's one floating panel of tips; made when it is first shown, then reused.
namespace ContextOverlay {

/// The model that the panel will show; set once at start-up.
void setModel(AppModel &model);

/// Shows the panel if it is hidden, hides it if it is visible. Nothing without a model.
void toggle();

/// Whether the panel is on the screen.
bool isShown();

/// Destroys the panel; for the end of the process, while the model still lives.
void destroy();

} // namespace ContextOverlay

} // namespace hmatnik
