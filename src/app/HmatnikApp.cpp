#include "app/HmatnikApp.h"

#include "app/ContextOverlay.h"
#include "app/HotKeyCenter.h"
#include "app/MainWindow.h"
#include "app/ViewsLoader.h"

#include <QCoreApplication>
#include <QMetaObject>

namespace hmatnik {

HmatnikApp::HmatnikApp(const platform::Desktop &desktop)
    : m_desktop(desktop)
    , m_delegate(*m_desktop.preferences, MainWindow::show)
    , m_model(m_desktop)
{
    MainWindow::setModel(m_model);
    ContextOverlay::setModel(m_model);
    HotKeyCenter::install(*m_desktop.hotKeys);
}

HmatnikApp::~HmatnikApp()
{
    ContextOverlay::destroy();
    MainWindow::destroy();
    ViewsLoader::release();
}

int HmatnikApp::run()
{
    QMetaObject::invokeMethod(
        qApp, [this] { m_delegate.applicationDidFinishLaunching(); }, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

} // namespace hmatnik
