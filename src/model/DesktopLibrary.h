#pragma once

#include "model/Shortcut.h"
#include "platform/DesktopKind.h"

#include <QList>
#include <QString>

namespace hmatnik {

/// A shortcut of a desktop that is no Mac.
struct DesktopShortcut
{
    Shortcut shortcut;
    /// Where the desktop keeps its keys, so that those which the person has chosen can be looked
    /// up: "gnome:" and a settings schema with a key, "kde:" and a component with an action,
    /// "xfce:" and a channel's part with an action or a command. Empty for what is no setting of
    /// the desktop.
    QString action;
};

/// The keyboard shortcuts of the desktop the program runs on, for who wants them instead of those
/// of a Mac. Actions that both have go by the same id.
class DesktopLibrary
{
public:
    DesktopLibrary() = delete;

    /// The records that a desktop of the family has, in display order. Keys are those that it comes
    /// with. Of a desktop that is not known, only what programs share everywhere.
    static QList<DesktopShortcut> of(platform::DesktopFamily family);
};

} // namespace hmatnik
