#include "model/ShortcutOrigin.h"

using namespace Qt::StringLiterals;

namespace hmatnik {

ShortcutOrigin ShortcutOrigin::of(const Shortcut &shortcut)
{
    if (shortcut.id.startsWith("menu-"_L1) && shortcut.apps.size() == 1 &&
        !shortcut.apps.first().isEmpty())
        return {Kind::menu, shortcut.apps.first()};
    if (shortcut.id.startsWith("system-"_L1) && shortcut.apps.isEmpty())
        return {Kind::desktop};
    return {};
}

} // namespace hmatnik
