#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace hmatnik::platform {

/// Reads the forms in which desktops write the keys of a shortcut. The result is a list of key
/// tokens, empty if the text is no shortcut of modifiers and a key that a keyboard has: it is
/// switched off, damaged, or a key of its own such as those for the volume.
namespace BindingKeys {

/// GTK's form: "<Primary><Alt>t".
QStringList fromGtk(const QString &binding);
/// Qt's form: "Meta+Shift+T".
QStringList fromQt(const QString &binding);
/// Qt's number of a key with its modifiers.
QStringList fromQtKey(std::int32_t combination);
/// Openbox's form: "W-S-t". A sequence of several strokes is none.
QStringList fromOpenbox(const QString &binding);

} // namespace BindingKeys

} // namespace hmatnik::platform
