#pragma once

#include "platform/KeyboardLayout.h"

#include <optional>

QT_BEGIN_NAMESPACE
class QKeyEvent;
QT_END_NAMESPACE

namespace hmatnik {

/// The row of the sidebar, counted from 0, that a key combination leads to: Ctrl with 1 to 9 and 0
/// to the first ten, with Shift in addition to those after the tenth; none for every other
/// combination. There may be fewer rows. The keys above the letters count by their place, because a
/// Czech layout writes digits there only with Shift; the number pad counts by what it writes.
std::optional<int> destinationRow(const QKeyEvent &press, const platform::KeyboardLayout &layout);

} // namespace hmatnik
