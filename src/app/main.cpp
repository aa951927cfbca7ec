#include "app/BrandIcon.h"
#include "app/DesktopAdapters.h"
#include "app/HmatnikApp.h"
#include "app/InstanceService.h"
#include "app/MainWindow.h"

#include <QApplication>

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

/// Tells the C library to give memory back where it can: a program that runs for days shall not
/// keep what it once needed. Its own choice is made for speed: a heap for every thread, and large
/// blocks inside them as soon as one was given back.
void keepHeapSmall()
{
#ifdef M_ARENA_MAX
    constexpr int largeBlock = 128 * 1024; // bytes
    ::mallopt(M_ARENA_MAX, 1);
    ::mallopt(M_MMAP_THRESHOLD, largeBlock);
    ::mallopt(M_TRIM_THRESHOLD, largeBlock);
#endif
}

} // namespace

int main(int argc, char *argv[])
{
    keepHeapSmall();
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
