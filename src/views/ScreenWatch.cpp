#include "views/ScreenWatch.h"

#include <QGuiApplication>
#include <QScreen>

namespace hmatnik {

ScreenWatch::ScreenWatch(QObject *parent)
    : QObject(parent)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(0);
    connect(&m_rest, &QTimer::timeout, this, &ScreenWatch::changed);
    for (const QScreen *screen : QGuiApplication::screens())
        follow(screen);
    const auto start = [this] {
        m_rest.start();
    };
    connect(qApp, &QGuiApplication::screenAdded, this, [this, start](const QScreen *screen) {
        follow(screen);
        start();
    });
    connect(qApp, &QGuiApplication::screenRemoved, this, start);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, start);
}

QList<QRect> ScreenWatch::workAreas()
{
    QList<QRect> areas;
    for (const QScreen *screen : QGuiApplication::screens())
        areas.append(screen->availableGeometry());
    return areas;
}

void ScreenWatch::follow(const QScreen *screen)
{
    const auto start = [this] {
        m_rest.start();
    };
    connect(screen, &QScreen::geometryChanged, this, start);
    connect(screen, &QScreen::availableGeometryChanged, this, start);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, start);
}

} // namespace hmatnik
