#include "app/MainWindow.h"

#include "app/AppMenu.h"
#include "app/Shell.h"
#include "app/ViewsLoader.h"

namespace hmatnik {

namespace {

AppModel *theModel = nullptr;
std::unique_ptr<MainWindowInterface> theWindow;

} // namespace

void MainWindow::setModel(AppModel &model)
{
    theModel = &model;
}

void MainWindow::show()
{
    if (!theModel)
        return;
    if (!theWindow) {
        ViewsModule *views = ViewsLoader::module();
        if (!views)
            return;
        theWindow = views->createMainWindow(*theModel, Shell::actions());
    }
    theWindow->setMenu(AppMenu::table());
    theWindow->present();
}

void MainWindow::destroy()
{
    theWindow.reset();
    theModel = nullptr;
}

} // namespace hmatnik
