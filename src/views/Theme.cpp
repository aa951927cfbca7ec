#include "views/Theme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QQmlEngine>
#include <QScreen>

#include <algorithm>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

Theme *theInstance = nullptr;

/// Fonts are asked for in points of the screen's logical density, which X11 lets people change;
/// layouts are not. Dividing by it makes one unit of a text style one unit of the layout.
double pointSize(double layoutUnits)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double dotsPerInch = screen ? screen->logicalDotsPerInchY() : 96.0;
    return layoutUnits * 72.0 / dotsPerInch;
}

QFont makeFont(const QStringList &families, double size, int weight)
{
    QFont font(families);
    font.setPointSizeF(pointSize(size));
    font.setWeight(static_cast<QFont::Weight>(weight));
    return font;
}

bool paletteIsDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

const ThemeTokens &tokensFor(bool dark, bool highContrast)
{
    if (highContrast)
        return dark ? ThemeTokens::darkHighContrast() : ThemeTokens::lightHighContrast();
    return dark ? ThemeTokens::dark() : ThemeTokens::light();
}

/// Size of the desktop's font in points of an inch, whichever way it is given.
double systemPoints()
{
    const QFont font = QGuiApplication::font();
    return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * 72.0 / 96.0;
}

} // namespace

Theme::Theme(std::shared_ptr<platform::Appearance> appearance, QObject *parent)
    : QObject(parent)
    , m_appearance(std::move(appearance))
    , m_tokens(&ThemeTokens::light())
{
    m_subscription = m_appearance->onChange([this] { update(); });
    qGuiApp->installEventFilter(this);
    update();
}

double Theme::textScaleFor(double systemPoints)
{
    constexpr double largestUntouched = 11;
    constexpr double usual = 10;
    return systemPoints > largestUntouched ? std::min(systemPoints / usual, 2.0) : 1.0;
}

void Theme::setInstance(Theme *theme)
{
    theInstance = theme;
}

Theme *Theme::create(QQmlEngine *, QJSEngine *)
{
    Q_ASSERT(theInstance);
    QJSEngine::setObjectOwnership(theInstance, QJSEngine::CppOwnership);
    return theInstance;
}

QFont Theme::pageTitle() const
{
    return roundedFont(24 * m_textScale, QFont::Bold);
}

QFont Theme::font(double size, int weight) const
{
    static const QStringList families{u"Inter"_s, QGuiApplication::font().family()};
    return makeFont(families, size, weight);
}

QFont Theme::roundedFont(double size, int weight) const
{
    static const QStringList families{u"Quicksand"_s, u"Inter"_s, QGuiApplication::font().family()};
    return makeFont(families, size, weight);
}

QFont Theme::symbolFont(double size) const
{
    static const QStringList families{u"Material Icons"_s};
    return makeFont(families, size, QFont::Normal);
}

QColor Theme::faded(const QColor &color, double opacity)
{
    QColor result = color;
    result.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return result;
}

bool Theme::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qGuiApp && (event->type() == QEvent::ApplicationPaletteChange ||
                               event->type() == QEvent::ApplicationFontChange))
        update();
    return QObject::eventFilter(watched, event);
}

void Theme::update()
{
    using enum platform::Appearance::ColorScheme;
    const auto scheme = m_appearance->colorScheme();
    const bool dark = scheme == NoPreference ? paletteIsDark() : scheme == Dark;
    const bool reducedMotion = m_appearance->reducedMotion();
    const bool highContrast = m_appearance->highContrast();
    const double textScale = textScaleFor(systemPoints());
    if (dark == m_dark && reducedMotion == m_reducedMotion && highContrast == m_highContrast &&
        textScale == m_textScale)
        return;
    m_dark = dark;
    m_reducedMotion = reducedMotion;
    m_highContrast = highContrast;
    m_textScale = textScale;
    m_tokens = &tokensFor(dark, highContrast);
    Q_EMIT changed();
}

} // namespace hmatnik
