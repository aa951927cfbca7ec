#pragma once

#include "model/AppModel.h"
#include "update/UpdateBannerState.h"
#include "update/UpdateChecker.h"
#include "views/FilterBarState.h"
#include "views/FrameMemory.h"
#include "views/LibraryState.h"
#include "views/MenuBarState.h"
#include "views/SaveNoticeState.h"
#include "views/ScreenWatch.h"
#include "views/SheetState.h"
#include "views/SidebarState.h"
#include "views/ViewsContext.h"
#include "views/ViewsModule.h"

#include <QQuickView>
#include <QTimer>

namespace hmatnik {

/// The main window: hosts ContentView, keeps its frame over restarts, hides when closed.
class MainWindowView final : public QQuickView, public MainWindowInterface
{
    Q_OBJECT

public:
    MainWindowView(
        ViewsContext &context, AppModel &model, UpdateChecker &updateChecker,
        const ShellActions &actions);
    ~MainWindowView() override;

    void setMenu(const MenuTable &menu) override;
    void present() override;
    bool isShown() const override;

protected:
    bool event(QEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void restoreFrame();
    void followScreens();
    bool isGeometrySettled() const;
    void frameChanged();
    void stateChanged();
    void frameRested();
    void saveFrame();
    void noticeMenuKeys(QEvent *event);
    /// Goes to the destination that a combination leads to; false if it leads to none.
    bool goToDestination(const QKeyEvent &press);
    void toggleMenuBar();

    AppModel &m_model;
    SidebarState m_sidebar;
    LibraryState m_library;
    FilterBarState m_filterBar;
    MenuBarState m_menuBar;
    SheetState m_sheets;
    UpdateBannerState m_banner;
    SaveNoticeState m_saveNotice;
    FrameMemory m_frame;
    ScreenWatch m_screens;
    /// Pixels of the screen to a layout unit, as the window was last sized by.
    double m_scale = 1;
    /// It is made for a new scale, and not yet as wide again as m_frame.
    bool m_hasSpareColumn = false;
    /// Writes the frame once a move or resize has come to rest.
    QTimer m_frameRest;
    /// Alt went down and nothing else happened since.
    bool m_altAlone = false;
};

} // namespace hmatnik
