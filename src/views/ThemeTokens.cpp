#include "views/ThemeTokens.h"

#include "views/BrandColors.h"

namespace hmatnik {

namespace {

QColor withOpacity(const QColor &color, double opacity)
{
    QColor result = color;
    result.setAlphaF(static_cast<float>(opacity));
    return result;
}

} // namespace

const ThemeTokens &ThemeTokens::light()
{
    static const QColor black(0, 0, 0);
    static const QColor white(255, 255, 255);
    static const ThemeTokens tokens{
        .accent = QColor(0x00, 0x7A, 0xFF),
        .blue = QColor(0x00, 0x7A, 0xFF),
        .purple = QColor(0xAF, 0x52, 0xDE),
        .orange = QColor(0xFF, 0x95, 0x00),
        .yellow = QColor(0xFF, 0xCC, 0x00),
        .green = QColor(0x34, 0xC7, 0x59),
        .red = QColor(0xFF, 0x3B, 0x30),
        .windowBackground = QColor(0xF2, 0xF3, 0xF7),
        .sidebar = withOpacity(QColor(0xEC, 0xEE, 0xF4), 0.92),
        .textPrimary = withOpacity(black, 0.85),
        .textSecondary = withOpacity(black, 0.50),
        .textTertiary = withOpacity(black, 0.28),
        .quaternaryFill = withOpacity(black, 0.06),
        .glassFill = withOpacity(white, 0.62),
        .glassStroke = withOpacity(white, 0.75),
        .edgeShadow = withOpacity(black, 0.08),
        .wideShadow = withOpacity(black, 0.06),
        .keyCapFill = white,
        .keyCapBorder = withOpacity(black, 0.12),
        .keyCapShadow = withOpacity(black, 0.13),
        .drawnKeyFill = white,
        .drawnKeyBorder = withOpacity(black, 0.10),
        .well = withOpacity(black, 0.045),
        .divider = withOpacity(black, 0.12),
        .sheetBackground = QColor(0xF4, 0xF5, 0xF8),
        .sheetShadow = withOpacity(black, 0.35),
        .scrim = withOpacity(black, 0.22),
        .brandTop = QColor(BrandColors::top),
        .brandBottom = QColor(BrandColors::bottom),
    };
    return tokens;
}

const ThemeTokens &ThemeTokens::dark()
{
    static const QColor black(0, 0, 0);
    static const QColor white(255, 255, 255);
    static const ThemeTokens tokens{
        .accent = QColor(0x0A, 0x84, 0xFF),
        .blue = QColor(0x0A, 0x84, 0xFF),
        .purple = QColor(0xBF, 0x5A, 0xF2),
        .orange = QColor(0xFF, 0x9F, 0x0A),
        .yellow = QColor(0xFF, 0xD6, 0x0A),
        .green = QColor(0x30, 0xD1, 0x58),
        .red = QColor(0xFF, 0x45, 0x3A),
        .windowBackground = QColor(0x1E, 0x1E, 0x22),
        .sidebar = withOpacity(QColor(0x28, 0x29, 0x30), 0.86),
        .textPrimary = withOpacity(white, 0.88),
        .textSecondary = withOpacity(white, 0.56),
        .textTertiary = withOpacity(white, 0.30),
        .quaternaryFill = withOpacity(white, 0.08),
        .glassFill = withOpacity(white, 0.07),
        .glassStroke = withOpacity(white, 0.18),
        .edgeShadow = withOpacity(black, 0.30),
        .wideShadow = withOpacity(black, 0.04),
        .keyCapFill = withOpacity(white, 0.12),
        .keyCapBorder = withOpacity(white, 0.28),
        .keyCapShadow = withOpacity(black, 0.13),
        .drawnKeyFill = withOpacity(white, 0.10),
        .drawnKeyBorder = withOpacity(white, 0.25),
        .well = withOpacity(white, 0.06),
        .divider = withOpacity(white, 0.14),
        .sheetBackground = QColor(0x2A, 0x2A, 0x2F),
        .sheetShadow = withOpacity(black, 0.35),
        .scrim = withOpacity(black, 0.22),
        .brandTop = QColor(BrandColors::top),
        .brandBottom = QColor(BrandColors::bottom),
    };
    return tokens;
}

} // namespace hmatnik
