#pragma once

#include "platform/SystemShortcuts.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>

namespace hmatnik::platform {

/// Properties of Xfce's channel of keyboard shortcuts by their paths
/// ("/xfwm4/custom/<Alt>F4"); values are texts and Booleans.
using XfceProperties = QHash<QString, QVariant>;

/// The shortcuts of Xfce's settings service; where it does not run, those of its files. None if
/// there is neither. Waits for the service.
SystemShortcuts::Result readXfceShortcuts();

/// Adds the properties of one of Xfce's files to those that are known. False if it is none.
bool addXfceFile(const QByteArray &text, XfceProperties &properties);

/// The shortcuts among the properties, those of the person where they have set their own. Without
/// keys are the actions that the desktop comes with and the person's own lack.
SystemShortcutSettings xfceShortcuts(const XfceProperties &properties);

} // namespace hmatnik::platform
