#include "views/Theme.h"

#include "FakeDesktop.h"

#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace hmatnik::test {

using namespace Qt::StringLiterals;
using ColorScheme = platform::Appearance::ColorScheme;

namespace {

QColor over(const QColor &top, const QColor &bottom)
{
    const auto mix = [&](double a, double b) {
        return a * top.alphaF() + b * (1 - top.alphaF());
    };
    return QColor::fromRgbF(
        static_cast<float>(mix(top.redF(), bottom.redF())),
        static_cast<float>(mix(top.greenF(), bottom.greenF())),
        static_cast<float>(mix(top.blueF(), bottom.blueF())));
}

/// Relative luminance of WCAG 2.
double luminance(const QColor &color)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor &text, const QColor &ground)
{
    const double a = luminance(over(text, ground));
    const double b = luminance(ground);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// Lightness of CIELAB, 0 to 100.
double lightness(const QColor &color)
{
    return 116 * std::cbrt(luminance(color)) - 16;
}

struct Palette
{
    const char *name;
    const ThemeTokens *tokens;
    bool highContrast;
};

} // namespace

TEST(ThemeTest, followsTheDesktopWhileRunning)
{
    FakeDesktop desktop;
    desktop.appearance->setColorScheme(ColorScheme::Light);
    Theme theme(desktop.appearance);
    EXPECT_FALSE(theme.isDark());
    QSignalSpy changes(&theme, &Theme::changed);
    desktop.appearance->setColorScheme(ColorScheme::Dark);
    EXPECT_TRUE(theme.isDark());
    EXPECT_EQ(theme.windowBackground(), ThemeTokens::dark().windowBackground);
    desktop.appearance->setReducedMotion(true);
    EXPECT_TRUE(theme.reducedMotion());
    EXPECT_EQ(changes.count(), 2);
    desktop.appearance->setReducedMotion(true);
    EXPECT_EQ(changes.count(), 2);
}

TEST(ThemeTest, paletteDecidesWhereTheDesktopSaysNothing)
{
    FakeDesktop desktop;
    const QPalette before = QGuiApplication::palette();
    Theme theme(desktop.appearance);
    QPalette dark(Qt::white, Qt::black);
    QGuiApplication::setPalette(dark);
    QCoreApplication::processEvents();
    EXPECT_TRUE(theme.isDark());
    QGuiApplication::setPalette(before);
}

class PaletteTest : public testing::TestWithParam<Palette>
{
protected:
    PaletteTest()
        : m_windows{tokens().windowBackground}
    {
        if (GetParam().highContrast)
            return;
        m_windows.push_back(over(Theme::faded(tokens().blue, 0.14), tokens().windowBackground));
        m_windows.push_back(over(Theme::faded(tokens().purple, 0.10), tokens().windowBackground));
    }

    const ThemeTokens &tokens() const { return *GetParam().tokens; }

    /// What coloured texts stand on: the window, bare and where the lights behind it are strongest,
    /// cards over it, and sheets.
    std::vector<QColor> paper() const
    {
        std::vector<QColor> result{tokens().sheetBackground, group()};
        for (const QColor &window : m_windows)
            result.insert(result.end(), {window, over(tokens().glassFill, window)});
        return result;
    }

    /// What coloured symbols stand on: besides, the sidebar and the update banner.
    std::vector<QColor> symbolGrounds() const
    {
        std::vector<QColor> result = paper();
        result.push_back(over(tokens().sidebar, tokens().windowBackground));
        for (const QColor &window : m_windows)
            result.push_back(over(Theme::faded(tokens().blue, 0.09), window));
        return result;
    }

    /// What texts stand on: besides, wells and the lit row of a panel.
    std::vector<QColor> grounds() const
    {
        std::vector<QColor> result = symbolGrounds();
        for (const QColor &window : m_windows)
            result.push_back(over(tokens().well, over(tokens().glassFill, window)));
        result.push_back(over(tokens().quaternaryFill, tokens().windowBackground));
        return result;
    }

    /// What a button that can't be pressed is filled with.
    std::vector<QColor> disabledGrounds() const
    {
        std::vector<QColor> result;
        for (const QColor &ground : paper())
            result.push_back(over(tokens().quaternaryFill, ground));
        return result;
    }

    /// Of a sheet's settings and fields.
    QColor group() const { return over(tokens().well, tokens().sheetBackground); }

    static double least(const QColor &color, const std::vector<QColor> &grounds)
    {
        double result = 21;
        for (const QColor &ground : grounds)
            result = std::min(result, contrast(color, ground));
        return result;
    }

    double leastForText() const { return GetParam().highContrast ? 7.0 : 4.5; }
    double leastForSymbols() const { return GetParam().highContrast ? 4.5 : 3.0; }

private:
    std::vector<QColor> m_windows;
};

TEST_P(PaletteTest, textsCanBeReadOnEveryGround)
{
    for (const QColor &color :
         {tokens().textPrimary, tokens().textSecondary, tokens().textTertiary})
        EXPECT_GE(least(color, grounds()), leastForText())
            << color.name(QColor::HexArgb).toStdString();
    for (const QColor &color :
         {tokens().orangeText, tokens().yellowText, tokens().greenText, tokens().redText})
        EXPECT_GE(least(color, paper()), leastForText()) << color.name().toStdString();
}

TEST_P(PaletteTest, ranksOfTextsCanBeToldApart)
{
    const auto apart = [this](const QColor &a, const QColor &b) {
        const QColor &window = tokens().windowBackground;
        return std::abs(lightness(over(a, window)) - lightness(over(b, window)));
    };
    // Of 100; a difference that is seen at once beside each other.
    constexpr double apartEnough = 8;
    EXPECT_GE(apart(tokens().textPrimary, tokens().textSecondary), apartEnough);
    EXPECT_GE(apart(tokens().textSecondary, tokens().textTertiary), apartEnough);
}

TEST_P(PaletteTest, whatCannotBeUsedCanStillBeRead)
{
    EXPECT_GE(least(tokens().textDisabled, disabledGrounds()), leastForSymbols());
    EXPECT_GE(least(tokens().textDisabled, paper()), leastForSymbols());
    EXPECT_GE(
        contrast(tokens().textDisabled, over(tokens().keyCapFill, tokens().sheetBackground)),
        leastForSymbols());
    EXPECT_LT(least(tokens().textDisabled, paper()), least(tokens().textTertiary, paper()));
    // Of a button that says that something is done.
    EXPECT_GE(least(tokens().textSecondary, disabledGrounds()), leastForText());
}

TEST_P(PaletteTest, symbolsCanBeSeenOnEveryGround)
{
    for (const QColor &color : {tokens().accent, tokens().blueSymbol})
        EXPECT_GE(least(color, symbolGrounds()), leastForSymbols()) << color.name().toStdString();
    for (const QColor &color : {tokens().purpleSymbol, tokens().orangeSymbol, tokens().yellowEdge})
        EXPECT_GE(least(color, paper()), leastForSymbols()) << color.name().toStdString();
}

TEST_P(PaletteTest, whiteTextCanBeReadOnTheAccent)
{
    EXPECT_GE(contrast(Qt::white, tokens().accentFill), leastForText());
}

TEST_P(PaletteTest, keysCanBeReadOnTheirCaps)
{
    for (const QColor &ground : grounds()) {
        for (const QColor &fill :
             {tokens().keyCapFill, tokens().drawnKeyFill, Theme::faded(tokens().green, 0.18)})
            EXPECT_GE(contrast(tokens().textPrimary, over(fill, ground)), leastForText());
    }
    EXPECT_GE(contrast(tokens().textTertiary, over(tokens().keyCapFill, group())), leastForText())
        << "the placeholder of a form's field";
}

TEST_P(PaletteTest, highContrastBoundsEveryControl)
{
    const double leastForEdges = GetParam().highContrast ? 3 : 1;
    for (const QColor &color :
         {tokens().glassStroke, tokens().keyCapBorder, tokens().drawnKeyBorder, tokens().divider})
        EXPECT_GT(least(color, grounds()), leastForEdges)
            << color.name(QColor::HexArgb).toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    ThemeTest, PaletteTest,
    testing::Values(
        Palette{"light", &ThemeTokens::light(), false},
        Palette{"dark", &ThemeTokens::dark(), false},
        Palette{"lightHighContrast", &ThemeTokens::lightHighContrast(), true},
        Palette{"darkHighContrast", &ThemeTokens::darkHighContrast(), true}),
    [](const testing::TestParamInfo<Palette> &info) { return info.param.name; });

TEST(ThemeTest, followsTheChoiceOfContrast)
{
    FakeDesktop desktop;
    desktop.appearance->setColorScheme(ColorScheme::Light);
    const Theme theme(desktop.appearance);
    EXPECT_FALSE(theme.highContrast());
    desktop.appearance->setHighContrast(true);
    EXPECT_TRUE(theme.highContrast());
    EXPECT_EQ(&theme.tokens(), &ThemeTokens::lightHighContrast());
    desktop.appearance->setColorScheme(ColorScheme::Dark);
    EXPECT_EQ(&theme.tokens(), &ThemeTokens::darkHighContrast());
    desktop.appearance->setHighContrast(false);
    EXPECT_EQ(&theme.tokens(), &ThemeTokens::dark());
}

TEST(ThemeTest, textsGrowWithTheDesktopsFont)
{
    EXPECT_EQ(Theme::textScaleFor(8), 1) << "never smaller than written";
    EXPECT_EQ(Theme::textScaleFor(11), 1) << "what desktops come with";
    EXPECT_DOUBLE_EQ(Theme::textScaleFor(13.3), 1.33);
    EXPECT_EQ(Theme::textScaleFor(40), 2) << "no more than the layouts hold";

    FakeDesktop desktop;
    const QFont before = QGuiApplication::font();
    const Theme theme(desktop.appearance);
    QSignalSpy changes(&theme, &Theme::changed);
    QFont larger = before;
    larger.setPointSizeF(15);
    QGuiApplication::setFont(larger);
    QCoreApplication::processEvents();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_DOUBLE_EQ(theme.textScale(), 1.5);
    EXPECT_DOUBLE_EQ(theme.headline().pointSizeF() / 0.75, 13 * 1.5);
    EXPECT_DOUBLE_EQ(theme.pageTitle().pointSizeF() / 0.75, 24 * 1.5);
    larger.setPixelSize(16);
    QGuiApplication::setFont(larger);
    QCoreApplication::processEvents();
    EXPECT_DOUBLE_EQ(theme.textScale(), 1.2);
    QGuiApplication::setFont(before);
}

TEST(ThemeTest, textStylesHaveTheirSizes)
{
    FakeDesktop desktop;
    const Theme theme(desktop.appearance);
    // The offscreen platform has 96 dots per inch, so that a layout unit is 0.75 points.
    EXPECT_DOUBLE_EQ(theme.headline().pointSizeF() / 0.75, 13);
    EXPECT_EQ(theme.headline().weight(), QFont::DemiBold);
    EXPECT_DOUBLE_EQ(theme.sidebarRow().pointSizeF() / 0.75, 12.5);
    EXPECT_EQ(theme.pageTitle().families().first(), u"Quicksand"_s);
    EXPECT_DOUBLE_EQ(theme.pageTitle().pointSizeF() / 0.75, 24);
}

} // namespace hmatnik::test
