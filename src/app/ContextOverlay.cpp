#include "app/ContextOverlay.h"

#include "app/Shell.h"
#include "app/ViewsLoader.h"
#include "model/AppModel.h"

namespace hmatnik {

namespace {

AppModel *theModel = nullptr;
std::unique_ptr<OverlayInterface> thePanel;

} // namespace

void ContextOverlay::setModel(AppModel &model)
{
    theModel = &model;
}

void ContextOverlay::toggle()
{
    if (isShown()) {
        thePanel->hidePanel();
        return;
    }
    if (!theModel)
        return;
    if (!thePanel) {
        ViewsModule *views = ViewsLoader::module();
        if (!views)
            return;
        thePanel = views->createOverlay(*theModel, Shell::actions());
    }
    thePanel->showOnMainScreen();
    theModel->refreshSystemKeys();
}

bool ContextOverlay::isShown()
{
    return thePanel && thePanel->isShown();
}

void ContextOverlay::destroy()
{
    thePanel.reset();
    theModel = nullptr;
}

} // namespace hmatnik
