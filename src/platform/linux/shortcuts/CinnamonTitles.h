#pragma once

#include <QString>

namespace hmatnik::platform {

/// The name of one of Cinnamon's actions by its key in the settings. Cinnamon has names only inside
/// its settings program; its schemas describe a part of them, in English. Empty for actions that
/// are not known.
QString cinnamonTitle(const QString &key);

} // namespace hmatnik::platform
