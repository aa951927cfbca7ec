#pragma once

#include <QColor>

namespace hmatnik {

/// The colours of one appearance. Translucent ones are meant to lie over the window background.
///
/// Texts keep a contrast of 4.5 to 1 to every ground they stand on, symbols 3 to 1 (WCAG 2.1, 1.4.3
/// and 1.4.11); with high contrast 7 to 1 and 4.5 to 1, and edges that bound a control 3 to 1. The
/// plain hues are too bright for that on white, so what is read has darker ones of its own. What
/// can't be used now keeps the contrast of a symbol, and the ranks of texts are far enough apart in
/// lightness to be told from each other.
struct ThemeTokens
{
    /// Rings, cursors, progress; not to be written on.
    QColor accent;
    /// Lies under white text.
    QColor accentFill;
    QColor blue;
    QColor purple;
    QColor orange;
    QColor yellow;
    QColor green;
    QColor red;
    QColor blueSymbol;
    QColor purpleSymbol;
    QColor orangeText;
    QColor orangeSymbol;
    QColor yellowText;
    /// Contour of a yellow symbol.
    QColor yellowEdge;
    QColor greenText;
    QColor redText;
    QColor windowBackground;
    QColor sidebar;
    QColor textPrimary;
    QColor textSecondary;
    QColor textTertiary;
    /// On what can't be used now.
    QColor textDisabled;
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
    /// The movable part of a scroll bar.
    QColor scrollThumb;
    QColor sheetBackground;
    QColor sheetShadow;
    /// Laid over what a sheet covers.
    QColor scrim;
    /// Ends of the brand mark's gradient.
    QColor brandTop;
    QColor brandBottom;

    static const ThemeTokens &light();
    static const ThemeTokens &dark();
    static const ThemeTokens &lightHighContrast();
    static const ThemeTokens &darkHighContrast();
};

} // namespace hmatnik
