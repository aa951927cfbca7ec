#include "system/SmartShortcutObserver.h"

#include "FakeDesktop.h"

#include <QCoreApplication>
#include <QThread>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

class SmartShortcutObserverTest : public testing::Test
{
protected:
    void pressOn(const platform::AccessibleElementPtr &element, int error = 0)
    {
        accessibility->setElementAtPosition(element, error);
        mouse->press({10, 20});
        QCoreApplication::processEvents();
    }

    std::shared_ptr<FakeMouseMonitor> mouse = std::make_shared<FakeMouseMonitor>();
    std::shared_ptr<FakeAccessibility> accessibility = std::make_shared<FakeAccessibility>();
    QStringList titles;
    std::unique_ptr<SmartShortcutObserver> observer =
        std::make_unique<SmartShortcutObserver>(mouse, accessibility, [this](const QString &title) {
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
            titles.append(title);
        });
};

} // namespace

TEST_F(SmartShortcutObserverTest, IsStoppedAtFirst)
{
    EXPECT_EQ(mouse->monitorCount(), 0);
    observer->stop();
    EXPECT_EQ(mouse->monitorCount(), 0);
}

TEST_F(SmartShortcutObserverTest, StartingTwiceInstallsOneMonitor)
{
    observer->start();
    observer->start();
    EXPECT_EQ(mouse->monitorCount(), 1);
    observer->stop();
    EXPECT_EQ(mouse->monitorCount(), 0);
    observer->start();
    EXPECT_EQ(mouse->monitorCount(), 1);
}

TEST_F(SmartShortcutObserverTest, WithoutPermissionStaysStoppedAndDoesNotAsk)
{
    accessibility->setTrusted(false);
    observer->start();
    EXPECT_EQ(mouse->monitorCount(), 0);
    EXPECT_EQ(accessibility->trustRequests(), 0);
    accessibility->setTrusted(true);
    observer->start();
    EXPECT_EQ(mouse->monitorCount(), 1);
}

TEST_F(SmartShortcutObserverTest, AMonitorThatIsNotThereCanBeTriedAgain)
{
    mouse->setAvailability(platform::Availability::no(u"není"_s));
    observer->start();
    EXPECT_EQ(mouse->monitorCount(), 0);
    mouse->setAvailability(platform::Availability::yes());
    observer->start();
    EXPECT_EQ(mouse->monitorCount(), 1);
}

TEST_F(SmartShortcutObserverTest, ReportsTheTitleOfAMenuItem)
{
    observer->start();
    pressOn(FakeElement::menuItem(u"Kopírovat"_s, u""_s));
    EXPECT_EQ(titles, QStringList{u"Kopírovat"_s});
}

TEST_F(SmartShortcutObserverTest, LooksUpAfterTheMonitorWasAnswered)
{
    accessibility->setElementAtPosition(FakeElement::menuItem(u"Kopírovat"_s, u"c"_s));
    observer->start();
    mouse->press({10.5, 20.25});
    EXPECT_TRUE(accessibility->positionQueries().isEmpty());
    QCoreApplication::processEvents();
    // The point arrives as it was reported.
    EXPECT_EQ(accessibility->positionQueries(), (QList<QPair<float, float>>{{10.5F, 20.25F}}));
    EXPECT_EQ(titles, QStringList{u"Kopírovat"_s});
}

TEST_F(SmartShortcutObserverTest, IgnoresEverythingElse)
{
    observer->start();
    pressOn(FakeElement::menuItem(u""_s, u"c"_s));
    for (const auto &role :
         {u"AXMenuBarItem"_s, u"AXButton"_s, u"AXWindow"_s, u"axmenuitem"_s, u"AXMenuItem "_s,
          u""_s}) {
        const auto element = FakeElement::menuItem(u"Kopírovat"_s, u"c"_s);
        element->set(u"AXRole", role);
        pressOn(element);
    }
    const auto item = FakeElement::menuItem(u"Kopírovat"_s, u"c"_s);
    pressOn(item, -25200);
    pressOn(nullptr);
    pressOn(FakeElement::make());
    item->setResult(u"AXRole", {-1, u"AXMenuItem"_s});
    pressOn(item);
    item->set(u"AXRole", u"AXMenuItem"_s);
    item->setError(u"AXTitle", -1);
    pressOn(item);
    item->set(u"AXTitle", std::int64_t(7));
    pressOn(item);
    EXPECT_EQ(titles, QStringList());
    EXPECT_EQ(accessibility->positionQueries().size(), 13);
}

TEST_F(SmartShortcutObserverTest, APendingLookUpEndsWithTheObserver)
{
    accessibility->setElementAtPosition(FakeElement::menuItem(u"Kopírovat"_s, u"c"_s));
    observer->start();
    mouse->press({1, 1});
    observer.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(titles, QStringList());
    EXPECT_TRUE(accessibility->positionQueries().isEmpty());
}

TEST_F(SmartShortcutObserverTest, APressThatEndsTheObserverDoesNotReachItAnyMore)
{
    accessibility->setElementAtPosition(FakeElement::menuItem(u"Kopírovat"_s, u"c"_s));
    const auto first = mouse->monitorLeftPresses([this](QPointF) { observer.reset(); });
    observer->start();
    mouse->press({1, 1});
    QCoreApplication::processEvents();
    EXPECT_EQ(titles, QStringList());
    EXPECT_EQ(mouse->monitorCount(), 1);
}

} // namespace hmatnik::test
