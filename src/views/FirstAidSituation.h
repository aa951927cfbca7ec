#pragma once

#include "model/Shortcut.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace hmatnik {

/// A trouble that the person may be in, and the built-in shortcuts that help out of it.
struct FirstAidSituation
{
    QString title;
    /// Name of its symbol in the Mac's symbol set.
    QString symbol;
    QStringList shortcutIds;

    /// All situations, in the order in which they are shown.
    static const QList<FirstAidSituation> &all();
};

} // namespace hmatnik
