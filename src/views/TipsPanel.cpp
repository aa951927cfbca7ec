#include "views/TipsPanel.h"

#include "views/ShellBridge.h"
#include "views/WindowRescaling.h"

#include <QQuickItem>
#include <QRegion>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

/// Row by row, a row's middle deciding how much of it lies within the corners.
QRegion roundedRectangle(const QSize &size, double radius)
{
    const int cornerRows = std::min(static_cast<int>(std::ceil(radius)), size.height() / 2);
    QRegion region(0, cornerRows, size.width(), size.height() - 2 * cornerRows);
    for (int row = 0; row < cornerRows; ++row) {
        const double rise = radius - row - 0.5;
        const int inset = qRound(radius - std::sqrt(std::max(0.0, radius * radius - rise * rise)));
        for (const int y : {row, size.height() - 1 - row})
            region += QRect(inset, y, size.width() - 2 * inset, 1);
    }
    return region;
}

} // namespace

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

/// Where windows are blended, the content's own round corners are smooth; elsewhere their
/// transparent part would be black, and the window is cut, if with jagged edges.
void TipsPanel::roundCorners()
{
    if (m_model.desktop().workspace->blendsWindows())
        setMask({});
    else
        setMask(roundedRectangle(size(), m_cornerRadius));
}

} // namespace hmatnik
