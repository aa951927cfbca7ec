#include "views/ShortcutsById.h"

#include <algorithm>
#include <iterator>

namespace hmatnik {

QList<Shortcut> shortcutsById(const QList<Shortcut> &library, const QStringList &ids)
{
    QList<Shortcut> found;
    std::ranges::copy_if(library, std::back_inserter(found), [&ids](const Shortcut &shortcut) {
        return ids.contains(shortcut.id);
    });
    return found;
}

} // namespace hmatnik
