#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace hmatnik::platform {

/// The ways in which desktops keep their shortcuts.
enum class ShortcutStore { gnome, cinnamon, mate, kde, xfce, openbox };

/// What a desktop is, by what it says of itself; none if it keeps its shortcuts in a way that is
/// not known.
/// @param currentDesktop as in XDG_CURRENT_DESKTOP: names with colons between them, the nearest
/// first
/// @param windowManager its name, which counts where there is no desktop; may be empty
std::optional<ShortcutStore>
shortcutStore(const QString &currentDesktop, const QString &windowManager);

/// Its name on a command line, and back.
QString nameOf(ShortcutStore kind);
std::optional<ShortcutStore> shortcutStoreNamed(const QString &name);

} // namespace hmatnik::platform
