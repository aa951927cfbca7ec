// Reads the menu bar of a process as an import does.
//
//     hmatnik_import_benchmark PROCESS
//
// Prints one line "SHORTCUTS MILLISECONDS". The time runs from the connection to the accessibility
// bus to the finished records.

#include "platform/linux/AtSpiAccessibility.h"
#include "system/MenuShortcutImporter.h"

#include <QCoreApplication>
#include <QTextStream>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace hmatnik;

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const auto process = QCoreApplication::arguments().value(1).toInt();
    const auto start = std::chrono::steady_clock::now();
    platform::AtSpiAccessibility accessibility;
    // Known from now on: the import itself would wait for an event loop to take the answer.
    accessibility.isTrusted();
    const auto result = MenuShortcutImporter::importFromApplication(
        accessibility, static_cast<std::int32_t>(QCoreApplication::applicationPid()), process,
        u"Writer"_s, {});
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    const auto *shortcuts = std::get_if<QList<Shortcut>>(&result);
    if (!shortcuts) {
        QTextStream(stderr) << "hmatnik_import_benchmark: "
                            << localizedDescription(std::get<MenuImportError>(result)) << Qt::endl;
        return 2;
    }
    QTextStream(stdout) << shortcuts->size() << ' ' << time.count() << Qt::endl;
    return 0;
}
