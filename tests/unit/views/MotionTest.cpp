#include "views/Motion.h"

#include "FakeDesktop.h"
#include "views/ViewsContext.h"

#include <QAnimationDriver>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int step = 16;

/// Time that passes when the test says so.
class SteppedTime final : public QAnimationDriver
{
public:
    SteppedTime() { install(); }
    ~SteppedTime() override { uninstall(); }
    qint64 elapsed() const override { return m_now; }
    // Counts from there anew, as the toolkit expects it.
    void start() override
    {
        m_now = 0;
        QAnimationDriver::start();
    }
    void pass(int milliseconds)
    {
        // Advanced while nothing moves, the toolkit would start it and count that time into the
        // next animation.
        if (isRunning()) {
            m_now += milliseconds;
            advance();
        }
        QCoreApplication::processEvents();
    }

private:
    qint64 m_now = 0;
};

} // namespace

class MotionTest : public testing::Test
{
protected:
    std::unique_ptr<QQuickItem> make(const QByteArray &qml)
    {
        QQmlComponent component(m_context.engine());
        component.setData("import QtQuick\nimport Hmatnik\n" + qml, {});
        EXPECT_TRUE(component.isReady()) << component.errorString().toStdString();
        return std::unique_ptr<QQuickItem>(qobject_cast<QQuickItem *>(component.create()));
    }

    /// A property of the item from step to step until nothing moves.
    std::vector<double> course(const QQuickItem &item, const char *property)
    {
        std::vector<double> values;
        for (int i = 0; i < 120; ++i) {
            m_time.pass(step);
            values.push_back(item.property(property).toDouble());
        }
        return values;
    }

    FakeDesktop m_desktop;
    SteppedTime m_time;
    ViewsContext m_context{m_desktop.appearance};
};

TEST_F(MotionTest, aSpringMovesAsItsResponseAndDampingSay)
{
    // That of the cards, and one that swings far.
    for (const auto &[response, damping] :
         std::vector<std::pair<double, double>>{{0.5, 0.85}, {0.3, 0.5}}) {
        const auto item =
            make(u"Item { Behavior on x { SpringAnimation { spring: Motion.spring(%1, %2); "
                 "damping: Motion.damping(%1, %2); epsilon: 0.01 } } }"_s.arg(response)
                     .arg(damping)
                     .toUtf8());
        ASSERT_TRUE(item);
        item->setProperty("x", 1000);
        const std::vector<double> seen = course(*item, "x");
        EXPECT_DOUBLE_EQ(seen.back(), 1000);

        // An oscillator let go at 0 that swings to 1 is, after t, at
        // 1 - exp(-decay * t) * (cos(turn * t) + decay / turn * sin(turn * t)).
        const double frequency = 2 * std::numbers::pi / response;
        const double decay = damping * frequency;
        const double turn = frequency * std::sqrt(1 - damping * damping);

        // With its speed and then its place going on step by step, the animation is half a step
        // ahead, and it is seen only once in a step.
        const auto firstMoved = std::ranges::find_if(seen, [](double x) { return x > 0; });
        const auto firstArrived = std::ranges::find_if(seen, [](double x) { return x >= 1000; });
        ASSERT_NE(firstArrived, seen.end());
        const double arrival = step * static_cast<double>(firstArrived - firstMoved + 1);
        EXPECT_NEAR(arrival, 1000 * (std::numbers::pi - std::acos(damping)) / turn, step)
            << response << ", " << damping;

        // So it overshoots by what the oscillator does give or take the decay of half a step.
        const double overshoot = std::exp(-std::numbers::pi * decay / turn);
        EXPECT_NEAR(
            std::ranges::max(seen) / 1000 - 1, overshoot,
            overshoot * std::expm1(decay * 0.001 * step / 2))
            << response << ", " << damping;
    }
}

TEST_F(MotionTest, aRowLightsUpInsteadOfJumping)
{
    const auto row =
        make("SidebarRow { symbol: \"star.fill\"; text: \"Oblíbené\"; selected: false }");
    ASSERT_TRUE(row);
    EXPECT_EQ(row->property("lit").toDouble(), 0);
    row->setProperty("selected", true);
    EXPECT_LT(row->property("lit").toDouble(), 0.1);
    const std::vector<double> seen = course(*row, "lit");
    EXPECT_TRUE(std::ranges::is_sorted(seen));
    EXPECT_GT(std::ranges::count_if(seen, [](double lit) { return lit > 0.05 && lit < 0.95; }), 5);
    EXPECT_EQ(seen.back(), 1);
}

TEST_F(MotionTest, withReducedMotionItJumps)
{
    m_desktop.appearance->setReducedMotion(true);
    const auto row =
        make("SidebarRow { symbol: \"star.fill\"; text: \"Oblíbené\"; selected: false }");
    ASSERT_TRUE(row);
    row->setProperty("selected", true);
    EXPECT_EQ(row->property("lit").toDouble(), 1);
}

TEST_F(MotionTest, theMaterialOfTheSidebarFollowsTheAppearance)
{
    using enum platform::Appearance::ColorScheme;
    m_desktop.appearance->setColorScheme(Light);
    const auto view = make("VisualEffectView { material: VisualEffectView.Sidebar }");
    ASSERT_TRUE(view);
    EXPECT_EQ(view->property("color").value<QColor>(), ThemeTokens::light().sidebar);
    m_desktop.appearance->setColorScheme(Dark);
    EXPECT_EQ(view->property("color").value<QColor>(), ThemeTokens::dark().sidebar);
}

} // namespace hmatnik::test
