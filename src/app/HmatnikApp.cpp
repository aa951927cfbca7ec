#include "app/HmatnikApp.h"

#include "app/ContextOverlay.h"
#include "app/HotKeyCenter.h"
#include "app/MainWindow.h"
#include "app/MenuBarExtra.h"
#include "app/Shell.h"
#include "app/ViewsLoader.h"
#include "update/ManifestProgram.h"

#include <QCoreApplication>
#include <QMetaObject>

namespace hmatnik {

HmatnikApp::HmatnikApp(const platform::Desktop &desktop)
    : m_desktop(desktop)
    , m_delegate(*m_desktop.preferences, MainWindow::show)
    , m_model(m_desktop)
    , m_updateChecker(
          m_desktop.preferences,
          std::make_unique<ManifestProgram>(ManifestProgram::installedProgram()))
    , m_tips(
          m_model, {.isMainWindowShown = MainWindow::isShown,
                    .isOverlayShown = ContextOverlay::isShown,
                    .showMainWindow = MainWindow::showActivated})
{
    MainWindow::setModel(m_model);
    MainWindow::setUpdateChecker(m_updateChecker);
    ContextOverlay::setModel(m_model);
    HotKeyCenter::install(*m_desktop.hotKeys);
}

HmatnikApp::~HmatnikApp()
{
    m_menuBarExtra.reset();
    ContextOverlay::destroy();
    MainWindow::destroy();
    ViewsLoader::release();
}

int HmatnikApp::run()
{
    QMetaObject::invokeMethod(
        qApp, [this] { m_delegate.applicationDidFinishLaunching(); }, Qt::QueuedConnection);
    // The one check of a run. It only starts another process, and that after the window was asked
    // for: no first frame waits for it.
    QMetaObject::invokeMethod(
        &m_updateChecker, &UpdateChecker::checkForUpdate, Qt::QueuedConnection);
    m_menuBarExtra = std::make_unique<MenuBarExtra>(m_model, m_desktop.trayHosts, Shell::actions());
    return QCoreApplication::exec();
}

} // namespace hmatnik
