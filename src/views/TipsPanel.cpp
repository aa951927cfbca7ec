#include "views/TipsPanel.h"

#include "views/ShellBridge.h"
#include "views/WindowRescaling.h"

#include <QPainterPath>
#include <QQuickItem>
#include <QRegion>
#include <QScreen>

#include <utility>

namespace hmatnik {

using namespace Qt::StringLiterals;

TipsPanel::TipsPanel(ViewsContext &context, AppModel &model, double cornerRadius)
    : QQuickView(context.engine(), nullptr)
    , m_model(model)
    , m_tips(model)
    , m_cornerRadius(cornerRadius)
{
    setTitle(u"Hmatník"_s);
    setColor(Qt::transparent);
    m_scale = screen()->devicePixelRatio();
    setResizeMode(QQuickView::SizeViewToRootObject);
    connect(&m_screens, &ScreenWatch::changed, this, &TipsPanel::takeScreens);
}

TipsPanel::~TipsPanel()
{
    // The content reads the state below, which goes before the view does.
    setSource({});
}

void TipsPanel::load(const QString &view, const ShellActions &actions)
{
    setInitialProperties(
        {{u"tips"_s, QVariant::fromValue(&m_tips)},
         {u"shell"_s, QVariant::fromValue(new ShellBridge(m_model, actions, this))}});
    setSource(QUrl(u"qrc:/qt/qml/Hmatnik/"_s + view));
}

void TipsPanel::resizeEvent(QResizeEvent *event)
{
    QQuickView::resizeEvent(event);
    roundCorners();
}

void TipsPanel::showEvent(QShowEvent *event)
{
    QQuickView::showEvent(event);
    roundCorners();
}

QSize TipsPanel::contentSize() const
{
    return rootObject() ? rootObject()->size().toSize() : size();
}

void TipsPanel::takeScreens()
{
    const bool wasVisible = isVisible();
    const double scale = screen()->devicePixelRatio();
    const bool isScaled = std::exchange(m_scale, scale) != scale;
    if (isScaled)
        makeForNewScale(*this, QRect(position(), contentSize()));
    if (wasVisible)
        followScreens(isScaled);
}

void TipsPanel::roundCorners()
{
    // Without a compositor a transparent corner would be black.
    QPainterPath outline;
    outline.addRoundedRect(QRectF(QPointF(0, 0), size()), m_cornerRadius, m_cornerRadius);
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

} // namespace hmatnik
