#include "platform/linux/LinuxDesktop.h"

#include "XServer.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

class LinuxDesktopTest : public testing::Test
{
protected:
    LinuxDesktopTest()
    {
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        // Nobody listens there: the person's own bus stays out of the tests.
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        qunsetenv("DISPLAY");
    }

    static void expectComplete(const Desktop &desktop)
    {
        EXPECT_TRUE(desktop.preferences);
        EXPECT_TRUE(desktop.workspace);
        EXPECT_TRUE(desktop.accessibility);
        EXPECT_TRUE(desktop.mouseMonitor);
        EXPECT_TRUE(desktop.hotKeys);
        EXPECT_TRUE(desktop.loginItem);
        EXPECT_TRUE(desktop.appearance);
        EXPECT_TRUE(desktop.urlOpener);
        EXPECT_TRUE(desktop.clock);
        EXPECT_TRUE(desktop.keyboardLayout);
        EXPECT_TRUE(desktop.keyboardGrab);
    }

    QTemporaryDir m_folder;
};

TEST_F(LinuxDesktopTest, SaysWhyItCannotFollowWindowsWithoutADisplay)
{
    const Desktop desktop = makeLinuxDesktop();
    expectComplete(desktop);
    EXPECT_FALSE(desktop.workspace->availability().available);
    EXPECT_TRUE(desktop.workspace->availability().reason.contains(u"X11"));
    EXPECT_EQ(desktop.workspace->frontmostApplication(), std::nullopt);
    EXPECT_TRUE(desktop.preferences->setValue(u"a"_s, true)) << "the rest works";
    EXPECT_TRUE(desktop.loginItem->availability().available);
}

TEST_F(LinuxDesktopTest, UsesTheDisplayThatThereIs)
{
    const test::XServer server;
    ASSERT_TRUE(server.isRunning()) << "Xvfb is missing";
    const Desktop desktop = makeLinuxDesktop();
    expectComplete(desktop);
    EXPECT_TRUE(desktop.workspace->availability().available);
    EXPECT_TRUE(desktop.mouseMonitor->availability().available);
    EXPECT_TRUE(desktop.hotKeys->availability().available);
    EXPECT_FALSE(desktop.accessibility->availability().available) << "there is no session bus";
}

} // namespace hmatnik::platform
