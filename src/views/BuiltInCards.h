#pragma once

#include <QStringList>
#include <QVariantList>

namespace hmatnik {

/// Cards of the built-in shortcuts whose id is listed, in the library's order.
QVariantList builtInCards(const QStringList &ids);

} // namespace hmatnik
