#pragma once

#include "platform/SystemShortcuts.h"

#include <QByteArray>

namespace hmatnik::platform {

/// The shortcuts of the openbox window manager, from its file: that of the desktop it serves
/// (LXDE, LXQt) or its own. None if it can't be read.
SystemShortcuts::Result readOpenboxShortcuts();

/// The shortcuts in the text of rc.xml. None if it is no such text.
SystemShortcuts::Result openboxShortcuts(const QByteArray &text);

} // namespace hmatnik::platform
