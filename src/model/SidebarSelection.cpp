#include "model/SidebarSelection.h"

#include <QHashFunctions>

namespace hmatnik {

size_t qHash(const SidebarSelection &selection, size_t seed) noexcept
{
    const int position = static_cast<int>(selection.kind());
    if (selection.kind() != SidebarSelection::Kind::category)
        return qHashMulti(seed, position);
    return qHashMulti(seed, position, Shortcut::rawValue(selection.category()));
}

} // namespace hmatnik
