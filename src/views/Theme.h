#pragma once

#include "platform/Appearance.h"
#include "views/ThemeTokens.h"

#include <QFont>
#include <QObject>
#include <QtQmlIntegration>

#include <memory>

QT_BEGIN_NAMESPACE
class QJSEngine;
class QQmlEngine;
QT_END_NAMESPACE

namespace hmatnik {

/// Colours, text styles and motion of every screen. Follows the desktop while the program runs.
class Theme : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool dark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY changed)
    Q_PROPERTY(bool highContrast READ highContrast NOTIFY changed)
    Q_PROPERTY(double textScale READ textScale NOTIFY changed)

    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(QColor accentFill READ accentFill NOTIFY changed)
    Q_PROPERTY(QColor blue READ blue NOTIFY changed)
    Q_PROPERTY(QColor purple READ purple NOTIFY changed)
    Q_PROPERTY(QColor orange READ orange NOTIFY changed)
    Q_PROPERTY(QColor yellow READ yellow NOTIFY changed)
    Q_PROPERTY(QColor green READ green NOTIFY changed)
    Q_PROPERTY(QColor red READ red NOTIFY changed)
    Q_PROPERTY(QColor blueSymbol READ blueSymbol NOTIFY changed)
    Q_PROPERTY(QColor purpleSymbol READ purpleSymbol NOTIFY changed)
    Q_PROPERTY(QColor orangeText READ orangeText NOTIFY changed)
    Q_PROPERTY(QColor orangeSymbol READ orangeSymbol NOTIFY changed)
    Q_PROPERTY(QColor yellowText READ yellowText NOTIFY changed)
    Q_PROPERTY(QColor yellowEdge READ yellowEdge NOTIFY changed)
    Q_PROPERTY(QColor greenText READ greenText NOTIFY changed)
    Q_PROPERTY(QColor redText READ redText NOTIFY changed)
    Q_PROPERTY(QColor windowBackground READ windowBackground NOTIFY changed)
    Q_PROPERTY(QColor sidebar READ sidebar NOTIFY changed)
    Q_PROPERTY(QColor textPrimary READ textPrimary NOTIFY changed)
    Q_PROPERTY(QColor textSecondary READ textSecondary NOTIFY changed)
    Q_PROPERTY(QColor textTertiary READ textTertiary NOTIFY changed)
    Q_PROPERTY(QColor textDisabled READ textDisabled NOTIFY changed)
    Q_PROPERTY(QColor quaternaryFill READ quaternaryFill NOTIFY changed)
    Q_PROPERTY(QColor glassFill READ glassFill NOTIFY changed)
    Q_PROPERTY(QColor glassStroke READ glassStroke NOTIFY changed)
    Q_PROPERTY(QColor edgeShadow READ edgeShadow NOTIFY changed)
    Q_PROPERTY(QColor wideShadow READ wideShadow NOTIFY changed)
    Q_PROPERTY(QColor keyCapFill READ keyCapFill NOTIFY changed)
    Q_PROPERTY(QColor keyCapBorder READ keyCapBorder NOTIFY changed)
    Q_PROPERTY(QColor keyCapShadow READ keyCapShadow NOTIFY changed)
    Q_PROPERTY(QColor drawnKeyFill READ drawnKeyFill NOTIFY changed)
    Q_PROPERTY(QColor drawnKeyBorder READ drawnKeyBorder NOTIFY changed)
    Q_PROPERTY(QColor well READ well NOTIFY changed)
    Q_PROPERTY(QColor divider READ divider NOTIFY changed)
    Q_PROPERTY(QColor scrollThumb READ scrollThumb NOTIFY changed)
    Q_PROPERTY(QColor sheetBackground READ sheetBackground NOTIFY changed)
    Q_PROPERTY(QColor sheetShadow READ sheetShadow NOTIFY changed)
    Q_PROPERTY(QColor scrim READ scrim NOTIFY changed)
    Q_PROPERTY(QColor brandTop READ brandTop NOTIFY changed)
    Q_PROPERTY(QColor brandBottom READ brandBottom NOTIFY changed)

    Q_PROPERTY(QFont pageTitle READ pageTitle NOTIFY changed)
    Q_PROPERTY(QFont title READ title NOTIFY changed)
    Q_PROPERTY(QFont titleBold READ titleBold NOTIFY changed)
    Q_PROPERTY(QFont title2 READ title2 NOTIFY changed)
    Q_PROPERTY(QFont title2Bold READ title2Bold NOTIFY changed)
    Q_PROPERTY(QFont title3 READ title3 NOTIFY changed)
    Q_PROPERTY(QFont headline READ headline NOTIFY changed)
    Q_PROPERTY(QFont body READ body NOTIFY changed)
    Q_PROPERTY(QFont callout READ callout NOTIFY changed)
    Q_PROPERTY(QFont subheadline READ subheadline NOTIFY changed)
    Q_PROPERTY(QFont subheadlineMedium READ subheadlineMedium NOTIFY changed)
    Q_PROPERTY(QFont subheadlineSemibold READ subheadlineSemibold NOTIFY changed)
    Q_PROPERTY(QFont footnote READ footnote NOTIFY changed)
    Q_PROPERTY(QFont caption READ caption NOTIFY changed)
    Q_PROPERTY(QFont captionMedium READ captionMedium NOTIFY changed)
    Q_PROPERTY(QFont captionSemibold READ captionSemibold NOTIFY changed)
    Q_PROPERTY(QFont captionBold READ captionBold NOTIFY changed)
    Q_PROPERTY(QFont caption2 READ caption2 NOTIFY changed)
    Q_PROPERTY(QFont sectionHeading READ sectionHeading NOTIFY changed)
    Q_PROPERTY(QFont sidebarRow READ sidebarRow NOTIFY changed)

public:
    /// @param appearance is asked now and followed; where it says nothing, the palette decides.
    explicit Theme(std::shared_ptr<platform::Appearance> appearance, QObject *parent = nullptr);

    /// The one theme of the process, given to each QML engine; set before the first engine loads.
    static void setInstance(Theme *theme);
    static Theme *create(QQmlEngine *qmlEngine, QJSEngine *jsEngine);

    bool isDark() const { return m_dark; }
    bool reducedMotion() const { return m_reducedMotion; }
    bool highContrast() const { return m_highContrast; }
    /// How much larger than written the texts are, because the desktop's own are: 1 to 2. Layouts
    /// multiply by it what has to hold a text.
    double textScale() const { return m_textScale; }
    /// The scale that belongs to the size of the desktop's font. Desktops come with 9 to 11 points;
    /// who has more has asked for it, and is answered in proportion to the usual 10.
    static double textScaleFor(double systemPoints);
    const ThemeTokens &tokens() const { return *m_tokens; }

    QColor accent() const { return m_tokens->accent; }
    QColor accentFill() const { return m_tokens->accentFill; }
    QColor blue() const { return m_tokens->blue; }
    QColor purple() const { return m_tokens->purple; }
    QColor orange() const { return m_tokens->orange; }
    QColor yellow() const { return m_tokens->yellow; }
    QColor green() const { return m_tokens->green; }
    QColor red() const { return m_tokens->red; }
    QColor blueSymbol() const { return m_tokens->blueSymbol; }
    QColor purpleSymbol() const { return m_tokens->purpleSymbol; }
    QColor orangeText() const { return m_tokens->orangeText; }
    QColor orangeSymbol() const { return m_tokens->orangeSymbol; }
    QColor yellowText() const { return m_tokens->yellowText; }
    QColor yellowEdge() const { return m_tokens->yellowEdge; }
    QColor greenText() const { return m_tokens->greenText; }
    QColor redText() const { return m_tokens->redText; }
    QColor windowBackground() const { return m_tokens->windowBackground; }
    QColor sidebar() const { return m_tokens->sidebar; }
    QColor textPrimary() const { return m_tokens->textPrimary; }
    QColor textSecondary() const { return m_tokens->textSecondary; }
    QColor textTertiary() const { return m_tokens->textTertiary; }
    QColor textDisabled() const { return m_tokens->textDisabled; }
    QColor quaternaryFill() const { return m_tokens->quaternaryFill; }
    QColor glassFill() const { return m_tokens->glassFill; }
    QColor glassStroke() const { return m_tokens->glassStroke; }
    QColor edgeShadow() const { return m_tokens->edgeShadow; }
    QColor wideShadow() const { return m_tokens->wideShadow; }
    QColor keyCapFill() const { return m_tokens->keyCapFill; }
    QColor keyCapBorder() const { return m_tokens->keyCapBorder; }
    QColor keyCapShadow() const { return m_tokens->keyCapShadow; }
    QColor drawnKeyFill() const { return m_tokens->drawnKeyFill; }
    QColor drawnKeyBorder() const { return m_tokens->drawnKeyBorder; }
    QColor well() const { return m_tokens->well; }
    QColor divider() const { return m_tokens->divider; }
    QColor scrollThumb() const { return m_tokens->scrollThumb; }
    QColor sheetBackground() const { return m_tokens->sheetBackground; }
    QColor sheetShadow() const { return m_tokens->sheetShadow; }
    QColor scrim() const { return m_tokens->scrim; }
    QColor brandTop() const { return m_tokens->brandTop; }
    QColor brandBottom() const { return m_tokens->brandBottom; }

    // Text styles; sizes in points of 1/72 inch at a logical density of 72 dots per inch, that is,
    // one point is one unit of the layout; times the text scale.
    QFont pageTitle() const;
    QFont title() const { return style(22, QFont::Normal); }
    QFont titleBold() const { return style(22, QFont::Bold); }
    QFont title2() const { return style(17, QFont::Normal); }
    QFont title2Bold() const { return style(17, QFont::Bold); }
    QFont title3() const { return style(15, QFont::Normal); }
    QFont headline() const { return style(13, QFont::DemiBold); }
    QFont body() const { return style(13, QFont::Normal); }
    QFont callout() const { return style(12, QFont::Normal); }
    QFont subheadline() const { return style(11, QFont::Normal); }
    QFont subheadlineMedium() const { return style(11, QFont::Medium); }
    QFont subheadlineSemibold() const { return style(11, QFont::DemiBold); }
    QFont footnote() const { return style(10, QFont::Normal); }
    QFont caption() const { return style(captionSize, QFont::Normal); }
    QFont captionMedium() const { return style(captionSize, QFont::Medium); }
    QFont captionSemibold() const { return style(captionSize, QFont::DemiBold); }
    QFont captionBold() const { return style(captionSize, QFont::Bold); }
    QFont caption2() const { return style(10, QFont::Normal); }
    QFont sectionHeading() const { return style(10, QFont::Bold); }
    QFont sidebarRow() const { return style(12.5, QFont::Medium); }

    /// A font of the interface's family.
    /// @param size in layout units, fractions allowed; a binding multiplies by textScale itself, so
    ///   that it follows it
    /// @param weight as QFont::Weight
    Q_INVOKABLE QFont font(double size, int weight) const;
    /// The same in the rounded design.
    Q_INVOKABLE QFont roundedFont(double size, int weight) const;
    /// The font that draws the symbols.
    Q_INVOKABLE QFont symbolFont(double size) const;
    /// The colour at a fraction of its own opacity.
    Q_INVOKABLE static QColor faded(const QColor &color, double opacity);

    /// Captions read better beside the family used here at 11 than at the style's nominal 10.
    static constexpr double captionSize = 11;

Q_SIGNALS:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QFont style(double size, int weight) const { return font(size * m_textScale, weight); }
    void update();

    std::shared_ptr<platform::Appearance> m_appearance;
    platform::Subscription m_subscription;
    const ThemeTokens *m_tokens;
    bool m_dark = false;
    bool m_reducedMotion = false;
    bool m_highContrast = false;
    double m_textScale = 1;
};

} // namespace hmatnik
