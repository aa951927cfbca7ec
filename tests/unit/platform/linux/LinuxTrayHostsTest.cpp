#include "platform/linux/LinuxTrayHosts.h"

#include "PrivateBus.h"
#include "XServer.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QTest>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;
using platform::LinuxTrayHosts;
using platform::Subscription;
using platform::X11Connection;

namespace {

const QString service = u"org.kde.StatusNotifierWatcher"_s;
const QString path = u"/StatusNotifierWatcher"_s;

/// A watcher of status notifier items, as a panel brings it along.
class FakeWatcher final : public QDBusVirtualObject
{
public:
    explicit FakeWatcher(const QDBusConnection &bus)
        : m_bus(bus)
    {
        m_bus.registerVirtualObject(path, this);
    }

    bool hasHost = false;
    bool isSilent = false;
    int questions = 0;

    void appear() { EXPECT_TRUE(m_bus.registerService(service)); }
    void vanish() { EXPECT_TRUE(m_bus.unregisterService(service)); }
    void registerHost()
    {
        hasHost = true;
        m_bus.send(QDBusMessage::createSignal(path, service, u"StatusNotifierHostRegistered"_s));
    }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        ++questions;
        if (!isSilent && message.member() == u"Get"_s)
            bus.send(message.createReply(QVariant::fromValue(QDBusVariant(hasHost))));
        return true;
    }

private:
    QDBusConnection m_bus;
};

/// The manager of an XEmbed tray.
class FakeManager
{
public:
    FakeManager()
        : m_connection(X11Connection::open())
    {
    }

    void appear()
    {
        xcb_connection_t *raw = m_connection->raw();
        const xcb_window_t root = m_connection->root();
        m_window = xcb_generate_id(raw);
        xcb_create_window(
            raw, XCB_COPY_FROM_PARENT, m_window, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
            XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(raw, m_window, m_connection->trayAtom(), XCB_CURRENT_TIME);
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = root;
        message.type = m_connection->atom("MANAGER");
        message.data.data32[1] = m_connection->trayAtom();
        message.data.data32[2] = m_window;
        xcb_send_event(
            raw, 0, root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
            reinterpret_cast<const char *>(&message));
        xcb_flush(raw);
    }
    void vanish()
    {
        xcb_destroy_window(m_connection->raw(), m_window);
        xcb_flush(m_connection->raw());
    }

private:
    std::shared_ptr<X11Connection> m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

struct LinuxTrayHostsTest : testing::Test
{
    XServer server;
    PrivateBus bus;
    FakeWatcher watcher{bus.connect(u"watcher"_s)};
    int arrivals = 0;

    std::unique_ptr<LinuxTrayHosts> hosts =
        std::make_unique<LinuxTrayHosts>(X11Connection::open(), bus.connect(u"program"_s));
    Subscription arrival = hosts->onArrival([this] { ++arrivals; });

    ~LinuxTrayHostsTest() override
    {
        QDBusConnection::disconnectFromBus(u"watcher"_s);
        QDBusConnection::disconnectFromBus(u"program"_s);
    }

    /// Lets everything that is under way arrive, so that what has not come does not come.
    static void settle() { QTest::qWait(150); }
};

} // namespace

TEST_F(LinuxTrayHostsTest, aDesktopWithoutATrayIsSilent)
{
    settle();
    EXPECT_FALSE(hosts->isPresent());
    EXPECT_EQ(arrivals, 0);
}

TEST_F(LinuxTrayHostsTest, aTrayManagerThatComesLaterIsNoticed)
{
    settle();
    FakeManager manager;
    manager.appear();
    EXPECT_TRUE(QTest::qWaitFor([this] { return arrivals == 1; }));
    EXPECT_TRUE(hosts->isPresent());
    manager.vanish();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !hosts->isPresent(); }));
}

TEST_F(LinuxTrayHostsTest, aWatcherCountsOnceItHasAHost)
{
    watcher.appear();
    settle();
    EXPECT_FALSE(hosts->isPresent());
    EXPECT_EQ(arrivals, 0);
    watcher.registerHost();
    EXPECT_TRUE(QTest::qWaitFor([this] { return arrivals == 1; }));
    EXPECT_TRUE(hosts->isPresent());
}

TEST_F(LinuxTrayHostsTest, aRestartedWatcherIsANewArrival)
{
    watcher.hasHost = true;
    watcher.appear();
    EXPECT_TRUE(QTest::qWaitFor([this] { return arrivals == 1; }));
    watcher.vanish();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !hosts->isPresent(); }));
    watcher.appear();
    EXPECT_TRUE(QTest::qWaitFor([this] { return arrivals == 2; }));
}

TEST_F(LinuxTrayHostsTest, whoDoesNotAnswerIsNotWaitedFor)
{
    watcher.isSilent = true;
    watcher.appear();
    ASSERT_TRUE(QTest::qWaitFor([this] { return watcher.questions > 0; }));
    FakeManager manager;
    manager.appear();
    settle();
    EXPECT_FALSE(hosts->isPresent()) << "the toolkit would wait for the watcher's answer";
    EXPECT_EQ(arrivals, 0);
    watcher.vanish();
    EXPECT_TRUE(QTest::qWaitFor([this] { return arrivals == 1; }));
    EXPECT_TRUE(hosts->isPresent());
}

} // namespace hmatnik::test
