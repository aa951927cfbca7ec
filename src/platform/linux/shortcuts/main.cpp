/// Reads the shortcuts of the desktop as they are set now and writes them to standard output.
///
/// A program of its own, because settings stores start threads and keep memory that a program
/// waiting in the tray would never get back; and because a store that hangs or is damaged takes
/// nothing with it.

#include "platform/linux/shortcuts/GnomeShortcuts.h"
#include "platform/linux/shortcuts/KdeShortcuts.h"
#include "platform/linux/shortcuts/OpenboxShortcuts.h"
#include "platform/linux/shortcuts/ShortcutStore.h"
#include "platform/linux/shortcuts/ShortcutsJson.h"
#include "platform/linux/shortcuts/XfceShortcuts.h"

#include <QCoreApplication>

#include <clocale>
#include <cstdio>
#include <cstdlib>

using namespace hmatnik::platform;

namespace {

SystemShortcuts::Result read(ShortcutStore kind)
{
    switch (kind) {
    case ShortcutStore::gnome:
        return readGnomeShortcuts(GnomeKin::gnome);
    case ShortcutStore::cinnamon:
        return readGnomeShortcuts(GnomeKin::cinnamon);
    case ShortcutStore::mate:
        return readGnomeShortcuts(GnomeKin::mate);
    case ShortcutStore::kde:
        return readKdeShortcuts();
    case ShortcutStore::xfce:
        return readXfceShortcuts();
    case ShortcutStore::openbox:
        return readOpenboxShortcuts();
    }
    return std::nullopt;
}

} // namespace

/// @param argv the desktop's kind
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    // So that the settings' own texts come in the person's language.
    std::setlocale(LC_ALL, "");
    const auto kind =
        argc == 2 ? shortcutStoreNamed(QString::fromLocal8Bit(argv[1])) : std::nullopt;
    const auto settings = kind ? read(*kind) : std::nullopt;
    if (!settings)
        return EXIT_FAILURE;
    const QByteArray json = ShortcutsJson::toJson(*settings);
    const auto size = static_cast<std::size_t>(json.size());
    const bool isWritten =
        std::fwrite(json.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}
