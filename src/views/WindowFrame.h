#pragma once

#include <QList>
#include <QRect>
#include <QSize>
#include <QString>

#include <optional>

namespace hmatnik {

/// Rules for where the main window opens.
namespace WindowFrame {

/// Content size that holds both the shell's minimum (840 × 560) and the content's (980 × 650).
inline constexpr QSize minimumSize{980, 650};
/// First opening: the shell asks for 960 × 640, the content for at least 980 × 650.
inline constexpr QSize firstSize{980, 650};

/// The stored form: "x y width height" in layout units.
QString toText(const QRect &frame);
/// None if the text is not four whole numbers with a positive size.
std::optional<QRect> fromText(const QString &text);

/// The frame to open with.
/// @param saved frame of an earlier run, if any
/// @param screens available areas of the screens, the main one first; may be empty
/// Without a saved frame: the first size, centred on the main screen. A saved frame keeps its size
/// (never below the minimum, never above its screen as long as that holds the minimum) and is moved
/// so that it lies on one screen wholly, or with its top left corner where it does not fit.
QRect opening(const std::optional<QRect> &saved, const QList<QRect> &screens);

/// Where a window belongs after the screens have changed.
/// @param frame where it is
/// @param screens available areas of the screens that are left, the main one first; may be empty
/// As long as one of them shows half of the window it stays where the person has put it; else it is
/// moved as at an opening.
QRect keptVisible(const QRect &frame, const QList<QRect> &screens);

} // namespace WindowFrame

} // namespace hmatnik
