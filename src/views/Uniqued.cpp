#include "views/Uniqued.h"

namespace hmatnik {

QList<Shortcut> uniqued(const QList<Shortcut> &shortcuts)
{
    QList<Shortcut> kept;
    for (const Shortcut &shortcut : shortcuts) {
        if (!kept.contains(shortcut))
            kept.append(shortcut);
    }
    return kept;
}

} // namespace hmatnik
