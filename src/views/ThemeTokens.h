#pragma once

#include <QColor>

namespace hmatnik {

/// The colours of one appearance. Translucent ones are meant to lie over the window background.
struct ThemeTokens
{
    QColor accent;
    QColor blue;
    QColor purple;
    QColor orange;
    QColor yellow;
    QColor green;
    QColor red;
    QColor windowBackground;
    QColor sidebar;
    QColor textPrimary;
    QColor textSecondary;
    QColor textTertiary;
    QColor quaternaryFill;
    QColor glassFill;
    QColor glassStroke;
    /// Of the tight shadow that gives a surface its edge; the wide one is fainter.
    QColor edgeShadow;
    QColor wideShadow;
    QColor keyCapFill;
    QColor keyCapBorder;
    QColor keyCapShadow;
    /// A key of the drawn keyboard at rest.
    QColor drawnKeyFill;
    QColor drawnKeyBorder;
    /// Tiles and the capture area.
    QColor well;
    QColor divider;
    QColor sheetBackground;
    QColor sheetShadow;
    /// Laid over what a sheet covers.
    QColor scrim;
    /// Ends of the brand mark's gradient.
    QColor brandTop;
    QColor brandBottom;

    static const ThemeTokens &light();
    static const ThemeTokens &dark();
};

} // namespace hmatnik
