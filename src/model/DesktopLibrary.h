#pragma once

#include "model/Shortcut.h"
#include "platform/DesktopKind.h"

#include <QList>
#include <QStringList>

namespace hmatnik {

/// A shortcut of a desktop that is no Mac.
struct DesktopShortcut
{
    /// Its keys are those that the desktop comes with. None where that is not known: there it is a
    /// shortcut only with the keys that settings tell.
    Shortcut shortcut;
    /// Where desktops keep its keys, so that those which the person has chosen can be looked up:
    /// "gnome:", "cinnamon:" or "mate:" and a settings schema with a key, "kde:" and a component
    /// with an action, "xfce:" and a channel's part with an action or a command, "openbox:" and an
    /// action. Empty for what is no setting of a desktop.
    QStringList actions;
};

/// The keyboard shortcuts of the desktop the program runs on, for who wants them instead of those
/// of a Mac. Actions that both have go by the same id.
class DesktopLibrary
{
public:
    DesktopLibrary() = delete;

    /// The records that a desktop of the family has, in display order. Of a desktop that is not
    /// known, what programs share everywhere has keys, and what its settings may tell has none.
    static QList<DesktopShortcut> of(platform::DesktopFamily family);
};

} // namespace hmatnik
