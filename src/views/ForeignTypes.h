#pragma once

#include "model/AppModel.h"
#include "update/UpdateBannerState.h"
#include "update/UpdateChecker.h"

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

/// The same for the update check.
struct UpdateCheckerForeign
{
    Q_GADGET
    QML_FOREIGN(hmatnik::UpdateChecker)
    QML_NAMED_ELEMENT(UpdateChecker)
    QML_UNCREATABLE("made by the program")
};

/// The same for what the update banner shows.
struct UpdateBannerStateForeign
{
    Q_GADGET
    QML_FOREIGN(hmatnik::UpdateBannerState)
    QML_NAMED_ELEMENT(UpdateBannerState)
    QML_UNCREATABLE("made by the window")
};

} // namespace hmatnik
