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
        .accent = QColor(0x00, 0x70, 0xEA),
        .accentFill = QColor(0x00, 0x6F, 0xE6),
        .blue = QColor(0x00, 0x7A, 0xFF),
        .purple = QColor(0xAF, 0x52, 0xDE),
        .orange = QColor(0xFF, 0x95, 0x00),
        .yellow = QColor(0xFF, 0xCC, 0x00),
        .green = QColor(0x34, 0xC7, 0x59),
        .red = QColor(0xFF, 0x3B, 0x30),
        .blueSymbol = QColor(0x00, 0x70, 0xEA),
        .purpleSymbol = QColor(0xA4, 0x45, 0xD6),
        .orangeText = QColor(0x96, 0x49, 0x00),
        .orangeSymbol = QColor(0xBD, 0x63, 0x00),
        .yellowText = QColor(0x7D, 0x58, 0x00),
        .yellowEdge = QColor(0x8F, 0x66, 0x00),
        .greenText = QColor(0x14, 0x6B, 0x34),
        .redText = QColor(0xBC, 0x12, 0x0C),
        .windowBackground = QColor(0xF2, 0xF3, 0xF7),
        .sidebar = withOpacity(QColor(0xEC, 0xEE, 0xF4), 0.92),
        .textPrimary = withOpacity(black, 0.85),
        .textSecondary = withOpacity(black, 0.72),
        .textTertiary = withOpacity(black, 0.58),
        .textDisabled = withOpacity(black, 0.48),
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
        .scrollThumb = withOpacity(black, 0.28),
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
        .accentFill = QColor(0x0A, 0x6F, 0xE0),
        .blue = QColor(0x0A, 0x84, 0xFF),
        .purple = QColor(0xBF, 0x5A, 0xF2),
        .orange = QColor(0xFF, 0x9F, 0x0A),
        .yellow = QColor(0xFF, 0xD6, 0x0A),
        .green = QColor(0x30, 0xD1, 0x58),
        .red = QColor(0xFF, 0x45, 0x3A),
        .blueSymbol = QColor(0x36, 0x99, 0xFF),
        .purpleSymbol = QColor(0xC8, 0x70, 0xF7),
        .orangeText = QColor(0xFF, 0x9F, 0x0A),
        .orangeSymbol = QColor(0xFF, 0x9F, 0x0A),
        .yellowText = QColor(0xE6, 0xC1, 0x09),
        .yellowEdge = QColor(0xFF, 0xD6, 0x0A),
        .greenText = QColor(0x30, 0xD1, 0x58),
        .redText = QColor(0xFF, 0x7B, 0x72),
        .windowBackground = QColor(0x1E, 0x1E, 0x22),
        .sidebar = withOpacity(QColor(0x28, 0x29, 0x30), 0.86),
        .textPrimary = withOpacity(white, 0.88),
        .textSecondary = withOpacity(white, 0.765),
        .textTertiary = withOpacity(white, 0.65),
        .textDisabled = withOpacity(white, 0.48),
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
        .scrollThumb = withOpacity(white, 0.30),
        .sheetBackground = QColor(0x2A, 0x2A, 0x2F),
        .sheetShadow = withOpacity(black, 0.35),
        .scrim = withOpacity(black, 0.22),
        .brandTop = QColor(BrandColors::top),
        .brandBottom = QColor(BrandColors::bottom),
    };
    return tokens;
}

const ThemeTokens &ThemeTokens::lightHighContrast()
{
    static const QColor black(0, 0, 0);
    static const QColor white(255, 255, 255);
    static const ThemeTokens tokens = [] {
        ThemeTokens high = light();
        high.accent = QColor(0x00, 0x52, 0xC2);
        high.accentFill = QColor(0x00, 0x4F, 0xB8);
        high.blueSymbol = high.accent;
        high.purpleSymbol = QColor(0x7A, 0x2A, 0xA8);
        high.orangeText = QColor(0x66, 0x31, 0x00);
        high.orangeSymbol = QColor(0x8F, 0x47, 0x00);
        high.yellowText = QColor(0x54, 0x3B, 0x00);
        high.yellowEdge = QColor(0x5C, 0x41, 0x00);
        high.greenText = QColor(0x09, 0x4A, 0x21);
        high.redText = QColor(0x86, 0x09, 0x05);
        high.sidebar = QColor(0xEC, 0xEE, 0xF4);
        high.textPrimary = black;
        high.textSecondary = withOpacity(black, 0.88);
        high.textTertiary = withOpacity(black, 0.74);
        high.textDisabled = withOpacity(black, 0.60);
        high.quaternaryFill = withOpacity(black, 0.12);
        high.glassFill = white;
        high.glassStroke = withOpacity(black, 0.55);
        high.keyCapBorder = withOpacity(black, 0.65);
        high.drawnKeyBorder = withOpacity(black, 0.60);
        high.divider = withOpacity(black, 0.50);
        high.scrollThumb = withOpacity(black, 0.60);
        return high;
    }();
    return tokens;
}

const ThemeTokens &ThemeTokens::darkHighContrast()
{
    static const QColor white(255, 255, 255);
    static const ThemeTokens tokens = [] {
        ThemeTokens high = dark();
        high.accent = QColor(0x66, 0xB3, 0xFF);
        high.accentFill = QColor(0x00, 0x52, 0xB8);
        high.blueSymbol = high.accent;
        high.purpleSymbol = QColor(0xD9, 0x95, 0xFF);
        high.orangeText = QColor(0xFF, 0xB3, 0x40);
        high.orangeSymbol = high.orangeText;
        high.yellowText = high.yellow;
        high.greenText = QColor(0x4A, 0xE3, 0x70);
        high.redText = QColor(0xFF, 0xA3, 0x9C);
        high.windowBackground = QColor(0x12, 0x12, 0x14);
        high.sidebar = QColor(0x1C, 0x1D, 0x22);
        high.textPrimary = white;
        high.textSecondary = withOpacity(white, 0.90);
        high.textTertiary = withOpacity(white, 0.80);
        high.textDisabled = withOpacity(white, 0.62);
        high.quaternaryFill = withOpacity(white, 0.16);
        high.glassStroke = withOpacity(white, 0.55);
        high.keyCapBorder = withOpacity(white, 0.70);
        high.drawnKeyBorder = withOpacity(white, 0.65);
        high.divider = withOpacity(white, 0.50);
        high.sheetBackground = QColor(0x1A, 0x1A, 0x1E);
        high.scrollThumb = withOpacity(white, 0.65);
        return high;
    }();
    return tokens;
}

} // namespace hmatnik
