#pragma once

#include "model/AppModel.h"

#include <QStringList>
#include <QVariantList>

namespace hmatnik {

/// Cards of the built-in shortcuts whose id is listed, in the library's order. The model says whose
/// names the keys have.
QVariantList builtInCards(const AppModel &model, const QStringList &ids);

} // namespace hmatnik
