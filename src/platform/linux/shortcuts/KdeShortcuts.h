#pragma once

#include "platform/SystemShortcuts.h"

#include <QByteArray>

namespace hmatnik::platform {

/// The shortcuts of KDE's global shortcut service, with the names that it shows; where it does not
/// run, those of its file. None if there is neither. Waits for the service.
SystemShortcuts::Result readKdeShortcuts();

/// The shortcuts in the text of kglobalshortcutsrc.
SystemShortcutSettings kdeShortcutsInFile(const QByteArray &text);

} // namespace hmatnik::platform
