#pragma once

#include <QString>

#include <array>
#include <set>

namespace hmatnik {

/// A modifier key that the person can require of the shortcuts shown.
enum class ModifierFilter { command, option, shift, control, fn };

/// In the order of the pills.
inline constexpr std::array allModifierFilters{
    ModifierFilter::command, ModifierFilter::option, ModifierFilter::shift, ModifierFilter::control,
    ModifierFilter::fn};

using ModifierFilters = std::set<ModifierFilter>;

/// The key token that a shortcut must hold: "⌘", "⌥", "⇧", "⌃" or "Fn".
QString rawValue(ModifierFilter filter);

} // namespace hmatnik
