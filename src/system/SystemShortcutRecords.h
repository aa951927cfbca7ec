#pragma once

#include "model/Shortcut.h"
#include "platform/SystemShortcuts.h"

#include <QList>
#include <QString>

#include <utility>

namespace hmatnik {

/// The desktop's own shortcuts as records, in their order: of no application, in the category of
/// what they act on, with ids that begin with "system-".
QList<Shortcut> recordsOf(const QList<platform::SystemShortcut> &shortcuts);

/// The desktop's name of the action that a record of recordsOf() is for; empty for any other
/// record.
QString actionOf(const Shortcut &record);

/// Gives records of recordsOf() whose keys the desktop has taken away from their action those that
/// it has now, and new ids with them. Records of actions that it has no keys for stay,
/// and so do those whose new id another record has.
/// @return the records that changed, as they were and as they are
QList<std::pair<Shortcut, Shortcut>>
takeKeys(QList<Shortcut> &records, const QList<platform::SystemShortcut> &shortcuts);

} // namespace hmatnik
