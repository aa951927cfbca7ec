#include "app/MainWindow.h"

#include "app/AppMenu.h"
#include "app/Shell.h"
#include "app/ViewsLoader.h"
#include "model/AppModel.h"

#include <QGuiApplication>

namespace hmatnik {

namespace {

AppModel *theModel = nullptr;
UpdateChecker *theUpdateChecker = nullptr;
std::unique_ptr<MainWindowInterface> theWindow;

} // namespace

void MainWindow::setModel(AppModel &model)
{
    theModel = &model;
}

void MainWindow::setUpdateChecker(UpdateChecker &updateChecker)
{
    theUpdateChecker = &updateChecker;
}

void MainWindow::show()
{
    if (!theModel || !theUpdateChecker)
        return;
    if (!theWindow) {
        ViewsModule *views = ViewsLoader::module();
        if (!views)
            return;
        theWindow = views->createMainWindow(*theModel, *theUpdateChecker, Shell::actions());
        // Who comes back to the window may come from the settings of the desktop.
        QObject::connect(
            qGuiApp, &QGuiApplication::applicationStateChanged, theModel,
            [](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive && isShown())
                    theModel->refreshSystemKeys();
            });
    }
    theWindow->setMenu(AppMenu::table(
        theModel->desktop().systemShortcuts->availability().available
            ? AppMenu::DesktopShortcuts::Offered
            : AppMenu::DesktopShortcuts::Absent));
    theWindow->present();
    theModel->refreshSystemKeys();
}

void MainWindow::showActivated(const QString &activationToken)
{
    // The toolkit takes it from the environment, as if we had been started with it. Programs that
    // we start later are not to find it there.
    constexpr const char *variable = "XDG_ACTIVATION_TOKEN";
    if (!activationToken.isEmpty())
        qputenv(variable, activationToken.toUtf8());
    show();
    qunsetenv(variable);
}

void MainWindow::importSystemShortcuts()
{
    if (!theModel)
        return;
    // Only the library tells the outcome.
    using Kind = SidebarSelection::Kind;
    const Kind kind = theModel->selection().kind();
    if (kind != Kind::all && kind != Kind::favorites && kind != Kind::category)
        theModel->setSelection(Kind::all);
    theModel->importSystemShortcuts();
}

bool MainWindow::isShown()
{
    return theWindow && theWindow->isShown();
}

void MainWindow::destroy()
{
    theWindow.reset();
    theModel = nullptr;
    theUpdateChecker = nullptr;
}

} // namespace hmatnik
