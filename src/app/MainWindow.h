#pragma once

namespace hmatnik {

class AppModel;

/// The process's one main window; made at the first show, hidden rather than destroyed.
namespace MainWindow {

/// The model that the window will show; set once at start-up.
void setModel(AppModel &model);

/// Brings the main window to the front, creating it on first use. Nothing without a model.
void show();

/// Destroys the window; for the end of the process, while the model still lives.
void destroy();

} // namespace MainWindow

} // namespace hmatnik
