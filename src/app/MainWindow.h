#pragma once

#include <QString>

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

/// The same in answer to something that the desktop showed.
/// @param activationToken which the desktop wants to see of the window; may be empty.
void showActivated(const QString &activationToken);

/// Imports the desktop's own shortcuts into the model, and shows the library, which tells the
/// outcome, unless it is shown already.
void importSystemShortcuts();

/// Whether the window is on the screen.
bool isShown();

/// Destroys the window; for the end of the process, while model and checker still live.
void destroy();

} // namespace MainWindow

} // namespace hmatnik
