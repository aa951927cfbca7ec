#include "app/BrandIcon.h"
#include "app/DesktopAdapters.h"
#include "app/HmatnikApp.h"
#include "app/InstanceService.h"
#include "app/MainWindow.h"

#include <QApplication>

#include <csignal>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    // With a limit on the size of files, a write shall fail instead of ending the program. A
    // handler, not SIG_IGN: programs that we start must not inherit it.
    std::signal(SIGXFSZ, [](int) {});
    QCoreApplication::setApplicationName(u"hmatnik"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(HMATNIK_VERSION));
    QGuiApplication::setApplicationDisplayName(u"Hmatník"_s);
    QGuiApplication::setDesktopFileName(u"cz.hmatnik.Hmatnik"_s);
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);

    hmatnik::InstanceService service(hmatnik::MainWindow::show);
    if (service.start() == hmatnik::InstanceService::Outcome::HandedOver)
        return 0;
    QGuiApplication::setWindowIcon(hmatnik::brandIcon());
    hmatnik::HmatnikApp app(hmatnik::makeDesktop());
    return app.run();
}
