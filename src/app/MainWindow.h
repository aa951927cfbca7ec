#pragma once

namespace hmatnik {

class AppModel;
class UpdateChecker;

/// The process's one main window; made at the first show, hidden rather than destroyed.
namespace MainWindow {

/// The model that the window will show; set once at start-up.
void setModel(AppModel &model);

/// What tells the window of newer versions; set once at start-up.
void setUpdateChecker(UpdateChecker &updateChecker);

/// Brings the main window to the front, creating it on first use. Nothing without a
/// model or an update checker.
void show();

/// Destroys the window; for the end of the process, while model and checker still live.
void destroy();

} // namespace MainWindow

} // namespace hmatnik
