#pragma once

#include "platform/Availability.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace hmatnik::platform {

/// A shortcut of the desktop itself, with the keys that the person has set for it.
struct SystemShortcut
{
    /// What it acts on.
    enum class Kind { general, windows, files, screenshots, browser };

    /// Where it is kept and which action it is, the same as long as the desktop keeps its names:
    /// "gnome:org.gnome.desktop.wm.keybindings/close", "kde:kwin/Window Close".
    QString actionId;
    /// Name of the action, in the person's language where the desktop has it.
    QString title;
    /// Modifiers "⌃", "⌥", "⇧", "⌘" in this order, then the main key as shortcuts name it ("Tab",
    /// "Mezerník").
    QStringList keys;
    Kind kind = Kind::general;
    /// Whose settings it stands in, as people call it: "GNOME".
    QString desktop;
    /// Further keys that do the same, in the same notation.
    QList<QStringList> otherKeys = {};

    bool operator==(const SystemShortcut &) const = default;
};

/// What a desktop's settings tell of its shortcuts.
struct SystemShortcutSettings
{
    /// Those that have keys, each action once.
    QList<SystemShortcut> shortcuts;
    /// Names of the actions that stand there without any keys one could press, most often because
    /// the person has switched them off. What the settings don't know at all is not among them.
    QStringList withoutKeys = {};

    bool operator==(const SystemShortcutSettings &) const = default;
};

/// The shortcuts for windows, workspaces, screenshots and the like, as the person has set them; no
/// program's menu has them.
class SystemShortcuts
{
public:
    /// None if the settings can't be read.
    using Result = std::optional<SystemShortcutSettings>;
    using Handler = std::function<void(const Result &)>;

    virtual ~SystemShortcuts() = default;

    /// Whether this is a desktop whose settings can be read.
    virtual Availability availability() const = 0;

    /// Reads the settings as they are now, in the background, and calls the handler on the main
    /// thread after that, never from within the call. A question asked before the last one was
    /// answered takes its place: the earlier handler is not called.
    virtual void read(Handler handler) = 0;
};

} // namespace hmatnik::platform
