#include "views/ContextOverlayPanel.h"

#include "views/PanelPlacement.h"
#include "views/RoundedMask.h"
#include "views/ShellBridge.h"

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
    : QQuickView(context.engine(), nullptr)
    , m_tips(model)
{
    // A window that the window manager does not manage is never activated, is on every desktop and
    // lies above full-screen windows as well.
    setFlags(
        Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
        Qt::BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus);
    setTitle(u"Hmatník"_s);
    setColor(Qt::transparent);
    resize(firstSize);
    setResizeMode(QQuickView::SizeViewToRootObject);
    setInitialProperties(
        {{u"tips"_s, QVariant::fromValue(&m_tips)},
         {u"shell"_s, QVariant::fromValue(new ShellBridge(model, actions, this))}});
    setSource(QUrl(u"qrc:/qt/qml/Hmatnik/ContextOverlayView.qml"_s));
}

ContextOverlayPanel::~ContextOverlayPanel()
{
    // The content reads the state below, which goes before the view does.
    setSource({});
}

void ContextOverlayPanel::showOnMainScreen()
{
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        setPosition(PanelPlacement::topRight(screen->availableGeometry(), size()));
    show();
    giveWay(m_isGivingWay);
}

void ContextOverlayPanel::giveWay(bool isGivingWay)
{
    m_isGivingWay = isGivingWay;
    if (isGivingWay)
        lower();
    else
        raise();
}

void ContextOverlayPanel::resizeEvent(QResizeEvent *event)
{
    QQuickView::resizeEvent(event);
    setMask(roundedMask(size(), cornerRadius));
}

} // namespace hmatnik
