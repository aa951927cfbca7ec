#pragma once

#include "model/AppModel.h"

#include <qqml.h>

namespace hmatnik {

/// Makes the model's type known to QML.
struct AppModelForeign
{
    Q_GADGET
    QML_FOREIGN(hmatnik::AppModel)
    QML_NAMED_ELEMENT(AppModel)
    QML_UNCREATABLE("made by the program")
};

} // namespace hmatnik
