#include "views/ContextOverlayPanel.h"

#include "views/PanelPlacement.h"

#include <QGuiApplication>
#include <QScreen>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

// Size before the content says how high it is.
constexpr QSize firstSize(380, 300);
constexpr double cornerRadius = 14;

} // namespace

ContextOverlayPanel::ContextOverlayPanel(
    ViewsContext &context, AppModel &model, const ShellActions &actions)
    : TipsPanel(context, model, cornerRadius)
{
    // A window that the window manager does not manage is never activated, is on every desktop and
    // lies above full-screen windows as well.
    setFlags(
        Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
        Qt::BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus);
    resize(firstSize);
    load(u"ContextOverlayView.qml"_s, actions);
}

void ContextOverlayPanel::showOnMainScreen()
{
    moveToCorner();
    show();
    giveWay(m_isGivingWay);
}

void ContextOverlayPanel::followScreens(bool isScaled)
{
    if (isScaled)
        showOnMainScreen();
    else
        moveToCorner();
}

void ContextOverlayPanel::moveToCorner()
{
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        setPosition(PanelPlacement::topRight(screen->availableGeometry(), contentSize()));
}

void ContextOverlayPanel::giveWay(bool isGivingWay)
{
    m_isGivingWay = isGivingWay;
    if (isGivingWay)
        lower();
    else
        raise();
}

} // namespace hmatnik
