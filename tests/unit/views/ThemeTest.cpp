#include "views/Theme.h"

#include "FakeDesktop.h"

#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <cmath>

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

TEST(ThemeTest, bodyTextCanBeReadOnEveryGround)
{
    for (const ThemeTokens *tokens : {&ThemeTokens::light(), &ThemeTokens::dark()}) {
        const QColor window = tokens->windowBackground;
        for (const QColor &ground :
             {window, over(tokens->sidebar, window), over(tokens->glassFill, window),
              over(tokens->keyCapFill, over(tokens->glassFill, window)),
              over(tokens->well, over(tokens->glassFill, window))})
            EXPECT_GE(contrast(tokens->textPrimary, ground), 4.5);
    }
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
