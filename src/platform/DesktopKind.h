#pragma once

namespace hmatnik::platform {

/// Desktops whose own shortcuts are known, each with its kin that has the same ones.
enum class DesktopFamily { gnome, kde, xfce, other };

/// What sort of desktop this is, as far as keyboards and shortcuts differ.
struct DesktopKind
{
    /// Whether ⌘, ⌥, ⇧ and ⌃ stand on the keys. Where they do, nobody needs to choose other names
    /// or other shortcuts.
    bool hasMacKeyboard = false;
    DesktopFamily family = DesktopFamily::other;
};

} // namespace hmatnik::platform
