#pragma once

namespace hmatnik::platform {

/// What sort of desktop this is, as far as keyboards differ.
struct DesktopKind
{
    /// Whether ⌘, ⌥, ⇧ and ⌃ stand on the keys. Where they do, nobody needs to choose other names.
    bool hasMacKeyboard = false;
};

} // namespace hmatnik::platform
