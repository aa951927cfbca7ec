#include "app/AppDelegate.h"

#include "FakeDesktop.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

namespace {

struct AppDelegateTest : testing::Test
{
    FakeDesktop desktop;
    int shown = 0;

    void launch()
    {
        AppDelegate delegate(*desktop.preferences, [this] { ++shown; });
        delegate.applicationDidFinishLaunching();
    }
};

} // namespace

TEST_F(AppDelegateTest, firstLaunchOpensTheWindowAndIsRemembered)
{
    launch();
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(desktop.preferences->value(u"hasLaunchedBefore"_s), QVariant(true));
}

TEST_F(AppDelegateTest, laterLaunchesStayQuiet)
{
    launch();
    launch();
    EXPECT_EQ(shown, 1);
}

TEST_F(AppDelegateTest, aFlagOfAnotherTypeCountsAsAFirstLaunch)
{
    desktop.preferences->setValue(u"hasLaunchedBefore"_s, u"true"_s);
    launch();
    EXPECT_EQ(
        desktop.preferences->value(u"hasLaunchedBefore"_s).typeId(),
        static_cast<int>(QMetaType::Bool));
}

TEST_F(AppDelegateTest, reopeningShowsTheWindow)
{
    AppDelegate delegate(*desktop.preferences, [this] { ++shown; });
    delegate.applicationShouldHandleReopen();
    EXPECT_EQ(shown, 1);
}

} // namespace hmatnik::test
