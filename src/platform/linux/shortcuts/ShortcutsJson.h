#pragma once

#include "platform/SystemShortcuts.h"

#include <QByteArray>

namespace hmatnik::platform {

/// How the program that reads the desktop's settings hands the shortcuts to ours.
namespace ShortcutsJson {

/// Most shortcuts that are taken, and most names of actions without keys; the first ones count.
constexpr qsizetype mostShortcuts = 10000;
/// Longest title, in characters; past it the title is cut.
constexpr qsizetype longestTitle = 200;
/// Longest name of an action; a shortcut with a longer one is left out.
constexpr qsizetype longestActionId = 400;
/// Most further keys of one action; the first ones count.
constexpr qsizetype mostOtherKeys = 8;
/// Longest text in all, in bytes.
constexpr qsizetype longestText = qsizetype{8} * 1024 * 1024;

/// A JSON object. Titles are bounded and on one line, too many shortcuts left out, and what has no
/// title or no keys.
QByteArray toJson(const SystemShortcutSettings &settings);
/// None if the text is not what toJson() gives.
SystemShortcuts::Result fromJson(const QByteArray &json);

} // namespace ShortcutsJson

} // namespace hmatnik::platform
