#pragma once

#include "views/UniformInteger.h"

#include <QList>

namespace hmatnik {

/// Puts the list into one of its orders, each with the same probability (Fisher and Yates).
template <typename T>
void shuffle(QList<T> &list, const UniformInteger &random)
{
    for (qsizetype last = list.size() - 1; last > 0; --last)
        list.swapItemsAt(last, random(static_cast<int>(last) + 1));
}

} // namespace hmatnik
