#pragma once

#include "model/Shortcut.h"

#include <QList>
#include <QLocale>

#include <vector>

namespace hmatnik {

/// The built-in library followed by the person's own shortcuts, with each record's texts kept in
/// the folded form that searching needs. It caches no answer: only what depends on a record alone.
class ShortcutPool
{
public:
    /// @param locale decides how case is folded.
    explicit ShortcutPool(const QLocale &locale = QLocale());

    /// Replaces the records that follow the library.
    void setCustomShortcuts(const QList<Shortcut> &shortcuts);

    int size() const;
    const Shortcut &at(int position) const;
};

} // namespace hmatnik
