#include "platform/linux/BusNotifications.h"

#include "PrivateBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace hmatnik::test {

using namespace Qt::StringLiterals;
using platform::BusNotifications;
using platform::Notification;

namespace {

const QString service = u"org.freedesktop.Notifications"_s;
const QString path = u"/org/freedesktop/Notifications"_s;

/// A notification service that does as it is told.
class FakeService final : public QDBusVirtualObject
{
public:
    explicit FakeService(const QDBusConnection &bus)
        : m_bus(bus)
    {
        m_bus.registerVirtualObject(path, this);
    }

    QVariant capabilities = QStringList{u"body"_s, u"actions"_s, u"body-markup"_s};
    QString name = u"pokus"_s;
    /// What the two properties say; an invalid value: there is no such property.
    QVariant inhibited;
    QVariant paused;
    QVariant id = 7U;
    /// The method that gets no answer.
    QString silent;
    QStringList calls;
    QList<QVariantList> shown;
    QList<QVariantList> closed;

    void appear() { EXPECT_TRUE(m_bus.registerService(service)); }
    void vanish() { EXPECT_TRUE(m_bus.unregisterService(service)); }
    void emitSignal(const QString &member, const QVariantList &arguments) const
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, service, member);
        signal.setArguments(arguments);
        m_bus.send(signal);
    }
    void invoke(uint of, const QString &action) const
    {
        emitSignal(u"ActionInvoked"_s, {of, action});
    }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        const QString member = message.member();
        calls.append(member);
        if (member == silent)
            return true;
        if (member == "GetCapabilities"_L1) {
            bus.send(message.createReply(capabilities));
        } else if (member == "GetServerInformation"_L1) {
            bus.send(message.createReply(QVariantList{name, u"a"_s, u"1"_s, u"1.2"_s}));
        } else if (member == "Get"_L1) {
            const bool isDunst = message.arguments().value(1) == QVariant(u"paused"_s);
            const QVariant value = isDunst ? paused : inhibited;
            bus.send(
                value.isValid()
                    ? message.createReply(QVariant::fromValue(QDBusVariant(value)))
                    : message.createErrorReply(QDBusError::UnknownProperty, u"no such property"_s));
        } else if (member == "Notify"_L1) {
            shown.append(message.arguments());
            bus.send(message.createReply(id));
        } else if (member == "CloseNotification"_L1) {
            closed.append(message.arguments());
            bus.send(message.createReply());
        }
        return true;
    }

private:
    mutable QDBusConnection m_bus;
};

struct BusNotificationsTest : testing::Test
{
    PrivateBus bus;
    FakeService server{bus.connect(u"service"_s)};
    std::unique_ptr<BusNotifications> notifications = std::make_unique<BusNotifications>(
        bus.connect(u"program"_s), std::chrono::milliseconds(300));
    QStringList chosen;

    ~BusNotificationsTest() override
    {
        notifications.reset();
        for (const QString &name : {u"service"_s, u"program"_s, u"stranger"_s})
            QDBusConnection::disconnectFromBus(name);
    }

    static Notification message(const QString &title = u"Kopírovat"_s)
    {
        return {title, u"<b>a</b> & \"b\""_s, {{u"yes"_s, u"Ano"_s}, {u"no"_s, u"Ne"_s}}};
    }
    void show(const QString &title = u"Kopírovat"_s)
    {
        notifications->show(message(title), [this, title](const auto &action, const auto &token) {
            chosen.append(title + u':' + action + u':' + token);
        });
    }
    bool waitForShown(int count)
    {
        return QTest::qWaitFor([&] { return server.shown.size() == count; });
    }
    /// Waits until everything that was sent so far has arrived, in both directions.
    void settle()
    {
        const QDBusConnection program = bus.connect(u"program"_s);
        bool isDone = false;
        QDBusMessage question =
            QDBusMessage::createMethodCall(service, path, service, u"GetServerInformation"_s);
        QDBusPendingCallWatcher answer(program.asyncCall(question));
        QObject::connect(
            &answer, &QDBusPendingCallWatcher::finished, &answer, [&] { isDone = true; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return isDone; }));
        if (!answer.isError())
            server.calls.removeAt(server.calls.lastIndexOf(u"GetServerInformation"_s));
    }
    QVariantMap hints(int of) const { return qdbus_cast<QVariantMap>(server.shown[of].value(6)); }
};

} // namespace

TEST_F(BusNotificationsTest, AMessageIsQuietAndEscapedWhereMarkupIsRead)
{
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    const QVariantList sent = server.shown.first();
    EXPECT_EQ(sent[0], QVariant(u"Hmatník"_s));
    EXPECT_EQ(sent[1], QVariant(0U));
    EXPECT_EQ(sent[3], QVariant(u"Kopírovat"_s));
    EXPECT_EQ(sent[4], QVariant(u"&lt;b&gt;a&lt;/b&gt; &amp; &quot;b&quot;"_s));
    EXPECT_EQ(sent[5], QVariant(QStringList{u"yes"_s, u"Ano"_s, u"no"_s, u"Ne"_s}));
    EXPECT_EQ(sent[7], QVariant(-1));
    EXPECT_EQ(
        hints(0), (QVariantMap{
                      {u"urgency"_s, QVariant::fromValue<uchar>(0)},
                      {u"transient"_s, true},
                      {u"suppress-sound"_s, true},
                      {u"desktop-entry"_s, u"cz.hmatnik.Hmatnik"_s}}));
}

TEST_F(BusNotificationsTest, WhatTheServiceCannotDoIsLeftOut)
{
    server.capabilities = QStringList{u"body"_s};
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(server.shown.first()[4], QVariant(u"<b>a</b> & \"b\""_s));
    EXPECT_EQ(server.shown.first()[5], QVariant(QStringList()));
}

TEST_F(BusNotificationsTest, GnomeShellShowsOnlyOrdinaryUrgencyOnTheScreen)
{
    server.name = u"gnome-shell"_s;
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(hints(0).value(u"urgency"_s), QVariant::fromValue<uchar>(1));
}

TEST_F(BusNotificationsTest, TheLastOneIsReplacedAndCapabilitiesAreAskedForOnce)
{
    server.appear();
    show(u"a"_s);
    ASSERT_TRUE(waitForShown(1));
    settle();
    show(u"b"_s);
    ASSERT_TRUE(waitForShown(2));
    EXPECT_EQ(server.shown[1][1], QVariant(7U));
    EXPECT_EQ(server.calls.count(u"GetCapabilities"_s), 1);
    EXPECT_EQ(server.calls.count(u"GetServerInformation"_s), 1);
}

TEST_F(BusNotificationsTest, OfManyAtOnceTheNewestIsShown)
{
    server.appear();
    for (int i = 0; i < 50; ++i)
        show(QString::number(i));
    ASSERT_TRUE(waitForShown(1));
    settle();
    EXPECT_EQ(server.shown.size(), 1);
    EXPECT_EQ(server.shown[0][3], QVariant(u"49"_s));
}

TEST_F(BusNotificationsTest, AnActionIsToldOnceWithItsToken)
{
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    settle();
    server.emitSignal(u"ActivationToken"_s, {7U, u"znak"_s});
    server.invoke(7, u"yes"_s);
    server.invoke(7, u"yes"_s);
    settle();
    EXPECT_EQ(chosen, QStringList{u"Kopírovat:yes:znak"_s});
}

TEST_F(BusNotificationsTest, AnAnsweredMessageGoes)
{
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    settle();
    server.invoke(7, u"default"_s); // none of ours
    settle();
    EXPECT_TRUE(server.closed.isEmpty());
    server.invoke(7, u"no"_s);
    settle();
    notifications.reset();
    settle();
    ASSERT_EQ(server.closed.size(), 1) << "once";
    EXPECT_EQ(server.closed.first(), QVariantList{7U});
}

TEST_F(BusNotificationsTest, SignalsThatMeanSomethingElseAreIgnored)
{
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    settle();
    const FakeService stranger(bus.connect(u"stranger"_s));
    stranger.invoke(7, u"yes"_s);
    server.invoke(8, u"yes"_s);
    server.invoke(0, u"yes"_s);
    server.invoke(7, u"default"_s);
    server.emitSignal(u"ActionInvoked"_s, {u"7"_s, u"yes"_s});
    server.emitSignal(u"ActionInvoked"_s, {7U});
    server.emitSignal(u"ActivationToken"_s, {8U, u"cizí"_s});
    server.emitSignal(u"ActivationToken"_s, {7U, QString(2000, u'x')});
    settle();
    EXPECT_EQ(chosen, QStringList());
    server.invoke(7, u"no"_s);
    settle();
    EXPECT_EQ(chosen, QStringList{u"Kopírovat:no:"_s});
}

TEST_F(BusNotificationsTest, ANumberThatIsNoneBelongsToNobody)
{
    for (const QVariant &id : {QVariant(0U), QVariant(u"7"_s), QVariant(-7)}) {
        notifications = std::make_unique<BusNotifications>(bus.connect(u"program"_s));
        server.id = id;
        server.shown.clear();
        if (id == QVariant(0U))
            server.appear();
        show(u"a"_s);
        ASSERT_TRUE(waitForShown(1));
        settle();
        server.invoke(0, u"yes"_s);
        server.invoke(7, u"yes"_s);
        settle();
        EXPECT_EQ(chosen, QStringList());
        show(u"b"_s);
        ASSERT_TRUE(waitForShown(2));
        EXPECT_EQ(server.shown[1][1], QVariant(0U));
        settle();
    }
}

TEST_F(BusNotificationsTest, CapabilitiesOfAWrongTypeAreNone)
{
    server.capabilities = 5;
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(server.shown.first()[5], QVariant(QStringList()));
}

TEST_F(BusNotificationsTest, NoneWhileThePersonDoesNotWantToBeDisturbed)
{
    server.appear();
    server.inhibited = true;
    show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.calls.count(u"Get"_s) == 1; }));
    settle();
    server.inhibited = false;
    server.paused = true;
    show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.calls.count(u"Get"_s) == 3; }));
    settle();
    EXPECT_TRUE(server.shown.isEmpty());
    server.inhibited = u"true"_s; // no answer to the question
    server.paused = false;
    show();
    EXPECT_TRUE(waitForShown(1));
}

TEST_F(BusNotificationsTest, AServiceThatSaysNothingIsGivenUpAndAskedAgainLater)
{
    server.appear();
    for (const QString &silent : {u"GetCapabilities"_s, u"Get"_s, u"Notify"_s}) {
        notifications = std::make_unique<BusNotifications>(
            bus.connect(u"program"_s), std::chrono::milliseconds(300));
        server.calls.clear();
        server.shown.clear();
        server.silent = silent;
        show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return server.calls.contains(silent); }));
        QTest::qWait(400); // nothing else comes
        EXPECT_EQ(server.calls.count(silent), 1);
        EXPECT_TRUE(server.shown.isEmpty());
        server.silent.clear();
        show(u"znovu"_s);
        ASSERT_TRUE(waitForShown(1));
        settle();
    }
}

TEST_F(BusNotificationsTest, WithoutAServiceNothingHappensUntilOneComes)
{
    show();
    show();
    settle();
    server.appear();
    settle();
    EXPECT_TRUE(server.calls.isEmpty());
    show();
    EXPECT_TRUE(waitForShown(1));
}

TEST_F(BusNotificationsTest, ARestartedServiceIsAStranger)
{
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    settle();
    server.vanish();
    server.appear();
    settle();
    server.invoke(7, u"yes"_s);
    settle();
    EXPECT_EQ(chosen, QStringList());
    show();
    ASSERT_TRUE(waitForShown(2));
    EXPECT_EQ(server.shown[1][1], QVariant(0U));
    EXPECT_EQ(server.calls.count(u"GetCapabilities"_s), 2);
}

TEST_F(BusNotificationsTest, WhatIsStillShownGoesWithTheProgram)
{
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    settle();
    notifications.reset();
    // Sent by now, although nobody here has had the time to answer.
    QDBusConnection::disconnectFromBus(u"program"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !server.closed.isEmpty(); }));
    EXPECT_EQ(server.closed.size(), 1);
    EXPECT_EQ(server.closed.first(), QVariantList{7U});
}

TEST_F(BusNotificationsTest, NothingIsTakenAwayThatIsNotShown)
{
    server.appear();
    const auto expectNothingClosed = [this] {
        notifications = std::make_unique<BusNotifications>(bus.connect(u"program"_s));
        settle();
        EXPECT_TRUE(server.closed.isEmpty());
        server.shown.clear();
    };
    expectNothingClosed();

    show();
    ASSERT_TRUE(waitForShown(1));
    settle();
    server.emitSignal(u"NotificationClosed"_s, {7U, 1U});
    settle();
    expectNothingClosed();

    // The number is another one's.
    show();
    ASSERT_TRUE(waitForShown(1));
    settle();
    server.vanish();
    server.appear();
    settle();
    expectNothingClosed();

    server.id = 0U;
    show();
    ASSERT_TRUE(waitForShown(1));
    settle();
    expectNothingClosed();
}

TEST_F(BusNotificationsTest, TheEndOfAnotherMessageIsNotOurs)
{
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    settle();
    const FakeService stranger(bus.connect(u"stranger"_s));
    stranger.emitSignal(u"NotificationClosed"_s, {7U, 1U});
    server.emitSignal(u"NotificationClosed"_s, {8U, 1U});
    server.emitSignal(u"NotificationClosed"_s, {u"7"_s, 1U});
    settle();
    notifications.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.closed.size() == 1; }));
}

TEST_F(BusNotificationsTest, TheEndDoesNotWaitForTheService)
{
    notifications =
        std::make_unique<BusNotifications>(bus.connect(u"program"_s), std::chrono::seconds(60));
    server.appear();
    show();
    ASSERT_TRUE(waitForShown(1));
    settle();
    server.silent = u"CloseNotification"_s;
    QElapsedTimer timer;
    timer.start();
    notifications.reset();
    EXPECT_LT(timer.elapsed(), 2 * BusNotifications::farewellTimeout.count());
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.calls.contains(server.silent); }));
}

TEST(BusNotifications, WithoutABusNothingHappens)
{
    BusNotifications notifications{QDBusConnection(u"none"_s)};
    EXPECT_FALSE(notifications.availability().available);
    notifications.show({}, {});
}

} // namespace hmatnik::test
