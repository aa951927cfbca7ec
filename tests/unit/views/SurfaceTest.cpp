#include "views/Surface.h"

#include <QQuickWindow>
#include <QSGRendererInterface>

#include <gtest/gtest.h>

#include <memory>

namespace hmatnik::test {

namespace {

const QColor ground(255, 255, 255);
const QColor fill(0, 0, 255);
const QColor stroke(255, 0, 0);
constexpr int radius = 7;

/// A window with one surface in it, which has no shadow: red edge, blue middle, on white.
class SurfaceTest : public testing::Test
{
protected:
    SurfaceTest()
    {
        m_window.setColor(ground);
        m_window.resize(260, 200);
        m_surface.setParentItem(m_window.contentItem());
        m_surface.setRadius(radius);
        m_surface.setFill(fill);
        m_surface.setStroke(stroke);
        m_surface.setEdgeShadow(Qt::transparent);
        m_surface.setWideShadow(Qt::transparent);
    }

    static void SetUpTestSuite() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

    /// Where the surface is drawn, if every pixel of its four edges is one of the edge.
    QRect drawnRect()
    {
        const QImage picture = m_window.grabWindow().convertToFormat(QImage::Format_RGB32);
        QRect drawn;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) != ground)
                    drawn |= QRect(x, y, 1, 1);
            }
        }
        const auto expectEdge = [&](int x, int y, int inwardsX, int inwardsY) {
            EXPECT_EQ(picture.pixelColor(x, y).name(), stroke.name()) << x << ", " << y;
            EXPECT_EQ(picture.pixelColor(x + inwardsX, y + inwardsY).name(), fill.name())
                << x << ", " << y;
        };
        for (int y = drawn.top() + radius + 1; y < drawn.bottom() - radius; ++y) {
            expectEdge(drawn.left(), y, 1, 0);
            expectEdge(drawn.right(), y, -1, 0);
        }
        for (int x = drawn.left() + radius + 1; x < drawn.right() - radius; ++x) {
            expectEdge(x, drawn.top(), 0, 1);
            expectEdge(x, drawn.bottom(), 0, -1);
        }
        return drawn;
    }

    QQuickWindow m_window;
    Surface m_surface;
};

} // namespace

TEST_F(SurfaceTest, liesOnWholePixelsWhateverItsPlace)
{
    for (const double offset : {0.0, 0.2, 0.5, 1.0 / 3, 0.75, 0.9}) {
        SCOPED_TRACE(offset);
        m_surface.setPosition({20 + offset, 30 + offset});
        m_surface.setSize({160, 100});
        const int moved = offset < 0.5 ? 0 : 1;
        EXPECT_EQ(drawnRect(), QRect(20 + moved, 30 + moved, 160, 100));
    }
}

TEST_F(SurfaceTest, hasWholePixelsWhateverItsSize)
{
    m_surface.setPosition({20, 30});
    for (const double part : {0.0, 0.25, 0.5, 2.0 / 3}) {
        SCOPED_TRACE(part);
        // Large enough to be stretched, and so small that it is drawn as it is.
        m_surface.setSize({160 + part, 100 + part});
        const int larger = part < 0.5 ? 0 : 1;
        EXPECT_EQ(drawnRect().size(), QSize(160 + larger, 100 + larger));
        m_surface.setSize({20 + part, 20 + part});
        EXPECT_EQ(drawnRect().size(), QSize(20 + larger, 20 + larger));
    }
}

TEST_F(SurfaceTest, followsWhatIsAboveIt)
{
    QQuickItem above;
    above.setParentItem(m_window.contentItem());
    above.setSize({200, 140});
    m_surface.setParentItem(&above);
    m_surface.setPosition({20, 30});
    m_surface.setSize({160, 100});
    EXPECT_EQ(drawnRect(), QRect(20, 30, 160, 100));
    // As a list is scrolled, and as a card grows under the pointer.
    above.setY(-7.4);
    EXPECT_EQ(drawnRect(), QRect(20, 23, 160, 100));
    above.setY(0);
    above.setTransformOrigin(QQuickItem::TopLeft);
    above.setScale(1.012);
    EXPECT_EQ(drawnRect(), QRect(20, 30, 162, 101));
    m_surface.setParentItem(m_window.contentItem());
}

} // namespace hmatnik::test
