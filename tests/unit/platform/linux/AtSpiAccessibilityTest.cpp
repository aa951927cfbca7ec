#include "platform/linux/AtSpiAccessibility.h"

#include "ClosedSocket.h"
#include "FakeAtSpi.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <stop_token>
#include <thread>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

namespace {

using test::FakeAtSpi;
using Elements = std::vector<AccessibleElementPtr>;

template <typename Value>
std::optional<Value> read(const AccessibleElement &element, QStringView name)
{
    const AttributeResult result = element.attribute(name);
    const auto *value = std::get_if<Value>(&result.value);
    return result.error == 0 && value ? std::optional(*value) : std::nullopt;
}

Elements children(const AccessibleElement &element)
{
    return read<Elements>(element, u"AXChildren").value_or(Elements());
}

/// Every element below as "title|role|character|modifiers", in the order of the tree.
QStringList listing(const AccessibleElement &element)
{
    QStringList lines;
    for (const AccessibleElementPtr &child : children(element)) {
        lines.append(
            read<QString>(*child, u"AXTitle").value_or(QString()) + u'|' +
            read<QString>(*child, u"AXRole").value_or(QString()) + u'|' +
            read<QString>(*child, u"AXMenuItemCmdChar").value_or(QString()) + u'|' +
            QString::number(read<std::int64_t>(*child, u"AXMenuItemCmdModifiers").value_or(-1)));
        lines.append(listing(*child));
    }
    return lines;
}

} // namespace

class AtSpiAccessibilityTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_bus.isRunning()) << "dbus-daemon is missing";
        m_atSpi.emplace(m_bus);
        m_accessibility.emplace(
            [this](QPoint position) -> std::optional<OpenMenu> {
                m_askedAt = position;
                for (const QRect &window : m_menuWindows) {
                    if (m_menuOwner && window.contains(position))
                        return OpenMenu{*m_menuOwner, window};
                }
                return std::nullopt;
            },
            m_bus.connect(u"session"_s));
        m_atSpi->set(u"root"_s, {.role = 75, .children = {u"window"_s}});
        m_atSpi->set(
            u"window"_s, {.role = 23, .children = {u"filler"_s}, .states = 1U << 1 | 1U << 25});
        m_atSpi->set(u"filler"_s, {.role = 21, .children = {u"toolbar"_s, u"bar"_s}});
        m_atSpi->set(u"toolbar"_s, {.role = 63, .children = {u"button"_s}});
        m_atSpi->set(u"bar"_s, {.role = 34, .children = {u"file"_s, u"edit"_s}});
        m_atSpi->set(
            u"file"_s, {.name = u"File"_s,
                        .keyBinding = u"<Alt>f;<Alt>f;"_s,
                        .role = 33,
                        .children = {u"new"_s, u"line"_s, u"recent"_s}});
        m_atSpi->set(
            u"new"_s, {.name = u"New      "_s,
                       .keyBinding = u"n;<Alt>f:n;<Primary>n"_s,
                       .extents = QRect(0, 20, 100, 20)});
        m_atSpi->set(u"line"_s, {.role = 50, .extents = QRect(0, 40, 100, 1)});
        m_atSpi->set(
            u"recent"_s, {.name = u"Recent"_s,
                          .keyBinding = u"Alt+R"_s,
                          .children = {u"popup"_s},
                          .extents = QRect(0, 40, 100, 20)});
        m_atSpi->set(u"popup"_s, {.role = 41, .children = {u"clear"_s}});
        m_atSpi->set(
            u"clear"_s, {.name = u"Clear"_s,
                         .keyBinding = u"Ctrl+Shift+Del"_s,
                         .extents = QRect(100, 40, 100, 20)});
        m_atSpi->set(u"edit"_s, {.name = u"Edit"_s, .role = 33, .extents = QRect(40, 0, 40, 20)});
    }
    ~AtSpiAccessibilityTest() override { QDBusConnection::disconnectFromBus(u"session"_s); }

    AccessibleElementPtr application()
    {
        return m_accessibility->applicationElement(
            static_cast<std::int32_t>(QCoreApplication::applicationPid()), m_stop.get_token());
    }
    std::optional<AccessibleElementPtr> menuBar()
    {
        return read<AccessibleElementPtr>(*application(), u"AXMenuBar");
    }

    /// The item at a pixel as "title|role"; empty if there is none.
    QString at(float x, float y)
    {
        const auto [error, element] = m_accessibility->elementAtPosition(x, y);
        return error == 0 && element
                   ? read<QString>(*element, u"AXTitle").value_or(QString()) + u'|' +
                         read<QString>(*element, u"AXRole").value_or(QString())
                   : QString();
    }

    test::PrivateBus m_bus;
    std::optional<FakeAtSpi> m_atSpi;
    std::optional<AtSpiAccessibility> m_accessibility;
    std::optional<std::int32_t> m_menuOwner;
    /// Those of the menu and of its submenu.
    std::vector<QRect> m_menuWindows{QRect(0, 20, 100, 40), QRect(100, 40, 100, 20)};
    QPoint m_askedAt;
    std::stop_source m_stop;
};

TEST_F(AtSpiAccessibilityTest, ReadsAMenuBar)
{
    const auto bar = menuBar();
    ASSERT_TRUE(bar && *bar);
    EXPECT_EQ(read<QString>(**bar, u"AXRole"), u"AXMenuBar"_s);
    EXPECT_EQ(
        listing(**bar), (QStringList{
                            u"File|AXMenuBarItem||-1"_s, u"New|AXMenuItem|n|12"_s,
                            u"|AXMenuItem||-1"_s, u"Recent|AXMenuItem||-1"_s, u"|AXMenu||-1"_s,
                            u"Clear|AXMenuItem|⌦|13"_s, u"Edit|AXMenuBarItem||-1"_s}));
    EXPECT_NE((*bar)->attribute(u"AXSomething").error, 0);
    EXPECT_EQ(read<QString>(*application(), u"AXRole"), u"AXApplication"_s);
}

TEST_F(AtSpiAccessibilityTest, ElementsAnswerFromMemoryAndOnAnyThread)
{
    std::optional<AccessibleElementPtr> bar;
    std::thread([&] { bar = menuBar(); }).join();
    ASSERT_TRUE(bar && *bar);
    const int asked = m_atSpi->questions();
    m_accessibility.reset();
    EXPECT_EQ(listing(**bar).size(), 7);
    EXPECT_EQ(m_atSpi->questions(), asked);
}

TEST_F(AtSpiAccessibilityTest, AMenuBarThatNobodySeesIsTheLastChoice)
{
    m_atSpi->set(u"filler"_s, {.role = 21, .children = {u"hidden"_s, u"deeper"_s}});
    m_atSpi->set(
        u"hidden"_s, {.role = 34, .children = {u"edit"_s}, .extents = QRect(0, 0, 100, 0)});
    m_atSpi->set(u"deeper"_s, {.role = 21, .children = {u"bar"_s}});
    EXPECT_EQ(children(**menuBar()).size(), 2U);
    m_atSpi->set(u"deeper"_s, {.role = 21});
    EXPECT_EQ(children(**menuBar()).size(), 1U);
}

TEST_F(AtSpiAccessibilityTest, TheActiveWindowComesFirst)
{
    m_atSpi->set(u"root"_s, {.role = 75, .children = {u"other"_s, u"empty"_s, u"window"_s}});
    m_atSpi->set(u"other"_s, {.role = 23, .children = {u"otherBar"_s}});
    m_atSpi->set(u"otherBar"_s, {.role = 34, .children = {u"edit"_s}});
    m_atSpi->set(u"empty"_s, {.role = 23, .children = {u"emptyBar"_s}});
    m_atSpi->set(u"emptyBar"_s, {.role = 34});
    EXPECT_EQ(children(**menuBar()).size(), 2U);
    m_atSpi->set(u"window"_s, {.role = 23, .children = {u"filler"_s}});
    EXPECT_EQ(children(**menuBar()).size(), 1U) << "none is active: the first with something in it";
}

TEST_F(AtSpiAccessibilityTest, WithoutAMenuBarTheReadFails)
{
    m_atSpi->set(u"filler"_s, {.role = 21, .children = {u"toolbar"_s}});
    EXPECT_FALSE(menuBar());
    EXPECT_FALSE(read<AccessibleElementPtr>(
        *m_accessibility->applicationElement(1 << 30, {}), u"AXMenuBar"));
    m_atSpi.reset();
    EXPECT_FALSE(menuBar());
}

TEST_F(AtSpiAccessibilityTest, AStoppedProgramIsGivenUpSoon)
{
    for (const int questions : {1, 25}) {
        m_atSpi->fallSilentAfter(m_atSpi->questions() + questions);
        QElapsedTimer timer;
        timer.start();
        EXPECT_FALSE(menuBar()) << questions;
        EXPECT_LT(timer.elapsed(), 5000);
        m_atSpi->fallSilentAfter(1 << 30);
    }
    EXPECT_TRUE(menuBar());
}

TEST_F(AtSpiAccessibilityTest, AProgramThatDiesOnTheWayLeavesNothing)
{
    m_atSpi->dieAt(25);
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(menuBar());
    EXPECT_LT(timer.elapsed(), 2000);
}

TEST_F(AtSpiAccessibilityTest, HostileTreesAreBounded)
{
    // Back to the bar, into itself, into another program, and titles that are none.
    m_atSpi->set(
        u"file"_s,
        {.name = u"File"_s,
         .role = 33,
         .children = {u"bar"_s, u"file"_s, u":9.9"_s, u"huge"_s, u"odd"_s, u"new"_s, u"new"_s}});
    m_atSpi->set(u"huge"_s, {.name = QString(1000000, u'x'), .keyBinding = QString(1000000, u'+')});
    m_atSpi->set(
        u"odd"_s, {.name = u" a\u0001\u0002b\u007f \u200b\ufffd"_s, .keyBinding = u"Ctrl+O"_s});
    const auto bar = menuBar();
    ASSERT_TRUE(bar && *bar);
    EXPECT_EQ(
        listing(**bar),
        (QStringList{
            u"File|AXMenuBarItem||-1"_s, u"|AXMenuItem||-1"_s, u"ab \u200b\ufffd|AXMenuItem|O|12"_s,
            u"New|AXMenuItem|n|12"_s, u"Edit|AXMenuBarItem||-1"_s}));
}

TEST_F(AtSpiAccessibilityTest, AnEndlessMenuIsReadInPart)
{
    QStringList items;
    for (int i = 0; i < 100000; ++i)
        items.append(u"item%1"_s.arg(i));
    m_atSpi->set(u"file"_s, {.name = u"File"_s, .role = 33, .children = items});
    QElapsedTimer timer;
    timer.start();
    const auto bar = menuBar();
    EXPECT_LT(timer.elapsed(), 10000);
    ASSERT_TRUE(bar && *bar);
    const auto lines = listing(**bar);
    EXPECT_LT(lines.size(), 20000);
    EXPECT_GT(lines.size(), 1000);
}

TEST_F(AtSpiAccessibilityTest, ADeepTreeIsReadToItsEnd)
{
    for (int i = 0; i < 500; ++i)
        m_atSpi->set(
            u"deep%1"_s.arg(i),
            {.name = u"Deep %1"_s.arg(i), .children = {u"deep%1"_s.arg(i + 1)}});
    m_atSpi->set(u"file"_s, {.name = u"File"_s, .role = 33, .children = {u"deep0"_s}});
    const auto bar = menuBar();
    ASSERT_TRUE(bar && *bar);
    EXPECT_TRUE(listing(**bar).contains(u"Deep 499|AXMenuItem||-1"_s));
}

TEST_F(AtSpiAccessibilityTest, TrustFollowsTheSession)
{
    EXPECT_TRUE(m_accessibility->availability().available);
    EXPECT_FALSE(m_accessibility->isTrusted());
    m_atSpi->setEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_accessibility->isTrusted(); }));
    m_atSpi->setEnabled(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_accessibility->isTrusted(); }));
    std::thread([&] { m_accessibility->requestTrust(); }).join();
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_accessibility->isTrusted(); }));
    EXPECT_TRUE(m_atSpi->isEnabled());
}

TEST_F(AtSpiAccessibilityTest, WithoutABusNothingIsTrusted)
{
    AtSpiAccessibility accessibility({}, QDBusConnection(u"none"_s));
    EXPECT_FALSE(accessibility.availability().available);
    EXPECT_FALSE(accessibility.availability().reason.isEmpty());
    EXPECT_FALSE(accessibility.isTrusted());
    accessibility.requestTrust();
    EXPECT_FALSE(
        read<AccessibleElementPtr>(*accessibility.applicationElement(1, {}), u"AXMenuBar"));
    EXPECT_NE(accessibility.elementAtPosition(1, 1).error, 0);
}

TEST_F(AtSpiAccessibilityTest, FindsTheItemUnderThePointer)
{
    m_menuOwner = static_cast<std::int32_t>(QCoreApplication::applicationPid());
    EXPECT_EQ(at(50, 30), u"New|AXMenuItem"_s);
    EXPECT_EQ(m_askedAt, QPoint(50, 30));
    EXPECT_EQ(at(150, 50), u"Clear|AXMenuItem"_s);
    EXPECT_EQ(at(50, 50), u"Recent|AXMenu"_s) << "it only opens a menu";
    m_menuWindows.insert(m_menuWindows.begin(), QRect(40, 0, 40, 20));
    EXPECT_EQ(at(60, 10), QString()) << "a title in the menu bar is no item";
    EXPECT_EQ(at(500, 500), QString());
    m_atSpi->set(u"new"_s, {.name = u"New"_s, .states = 0, .extents = QRect(0, 20, 100, 20)});
    EXPECT_EQ(at(50, 30), QString()) << "what is not shown can't be clicked";
}

TEST_F(AtSpiAccessibilityTest, FindsTheItemOnAScaledDesktop)
{
    m_menuOwner = static_cast<std::int32_t>(QCoreApplication::applicationPid());
    m_menuWindows = {QRect(0, 40, 200, 80), QRect(200, 80, 200, 40)};
    EXPECT_EQ(at(100, 60), u"New|AXMenuItem"_s);
    EXPECT_EQ(at(100, 90), u"Recent|AXMenu"_s) << "it would be outside without the scale";
    EXPECT_EQ(at(300, 100), u"Clear|AXMenuItem"_s);
    m_atSpi->set(
        u"popup"_s, {.role = 41, .children = {u"clear"_s}, .extents = QRect(98, 38, 104, 24)});
    m_menuWindows = {QRect(0, 30, 150, 60), QRect(147, 57, 156, 36)};
    EXPECT_EQ(at(200, 70), u"Clear|AXMenuItem"_s) << "by half as much again";
    EXPECT_EQ(at(148, 58), QString()) << "the menu's edge";
    m_menuWindows = {QRect(500, 500, 37, 81)};
    EXPECT_EQ(at(510, 510), QString()) << "another window than that of any menu told of";
}

TEST_F(AtSpiAccessibilityTest, AMenuThatClosesAtTheClickIsRememberedAsItOpened)
{
    const auto own = static_cast<std::int32_t>(QCoreApplication::applicationPid());
    const auto title = [this] {
        const auto [error, element] = m_accessibility->elementAtPosition(50, 30);
        return error == 0 && element ? read<QString>(*element, u"AXTitle") : std::nullopt;
    };
    m_menuOwner = own;
    m_accessibility->readOpenMenus(own);
    EXPECT_EQ(m_atSpi->questions(), 0) << "not without permission";
    m_atSpi->setEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_accessibility->isTrusted(); }));
    m_accessibility->readOpenMenus(own);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_atSpi->questions() > 20; }));
    EXPECT_EQ(title(), u"New"_s);
    m_atSpi->set(u"file"_s, {.name = u"File"_s, .role = 33, .children = {}});
    EXPECT_EQ(title(), u"New"_s);
    m_menuOwner = own + 1;
    EXPECT_EQ(title(), std::nullopt) << "another program's menu";
}

TEST_F(AtSpiAccessibilityTest, ASilentBusIsWaitedForOnce)
{
    m_menuOwner = static_cast<std::int32_t>(QCoreApplication::applicationPid());
    const QTemporaryDir folder;
    QLocalServer stopped; // takes in a few and answers none, because no events are served here
    stopped.setListenBacklogSize(4);
    ASSERT_TRUE(stopped.listen(folder.filePath(u"bus"_s)));
    const QString whole = m_bus.address();
    m_atSpi->setAddress(u"unix:path="_s + stopped.fullServerName());

    QElapsedTimer time;
    time.start();
    std::thread import([this] { EXPECT_FALSE(menuBar()); });
    QTest::qSleep(100);
    EXPECT_NE(m_accessibility->elementAtPosition(50, 30).error, 0);
    EXPECT_LT(time.restart(), 1500) << "the import waits longer, and we not for it";
    for (int click = 0; click < 20; ++click)
        EXPECT_NE(m_accessibility->elementAtPosition(50, 30).error, 0);
    EXPECT_LT(time.elapsed(), 1500);

    // One that has started elsewhere is asked; the import gives up as soon as the first has gone.
    m_atSpi->setAddress(whole);
    EXPECT_EQ(m_accessibility->elementAtPosition(50, 30).error, 0);
    stopped.close();
    import.join();
}

TEST_F(AtSpiAccessibilityTest, AProgramThatTakesNobodyInIsAskedOverTheBus)
{
    m_menuOwner = static_cast<std::int32_t>(QCoreApplication::applicationPid());
    const QTemporaryDir folder;
    const test::ClosedSocket closed(folder.filePath(u"closed"_s));
    ASSERT_TRUE(closed.isFull());
    QElapsedTimer time;
    time.start();
    for (const QString &address :
         {closed.address(), u"unix:path=/nowhere;"_s + closed.address(), u"tcp:host=192.0.2.1"_s,
          u"unixexec:path=false"_s, u"unix:abstract="_s, u"autolaunch:"_s, u"unix"_s,
          u"unix:path="_s + QString(200, u'x')}) {
        m_atSpi->setDirectAddress(address);
        EXPECT_EQ(at(50, 30), u"New|AXMenuItem"_s) << address.toStdString();
        EXPECT_TRUE(menuBar()) << address.toStdString();
    }
    EXPECT_LT(time.elapsed(), 10'000);
}

TEST_F(AtSpiAccessibilityTest, ABusThatTakesNobodyInIsWaitedForBriefly)
{
    m_menuOwner = static_cast<std::int32_t>(QCoreApplication::applicationPid());
    const QTemporaryDir folder;
    const test::ClosedSocket closed(folder.filePath(u"closed"_s));
    ASSERT_TRUE(closed.isFull());
    m_atSpi->setAddress(closed.address());
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(at(50, 30), QString());
    EXPECT_LT(time.restart(), 1500);
    EXPECT_FALSE(menuBar());
    EXPECT_LT(time.elapsed(), 3000);
}

TEST_F(AtSpiAccessibilityTest, AProgramThatDoesNotGreetIsGivenUpSoon)
{
    const QTemporaryDir folder;
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(folder.filePath(u"silent"_s)));
    m_atSpi->setDirectAddress(u"unix:path="_s + silent.fullServerName());
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(menuBar());
    EXPECT_LT(time.elapsed(), 5000);
}

TEST_F(AtSpiAccessibilityTest, AProgramThatGreetsWronglyIsGivenUpAtOnce)
{
    const QTemporaryDir folder;
    for (const QByteArray &greeting :
         {"REJECTED EXTERNAL\r\n"_ba, QByteArray(1 << 20, 'x'),
          "OK 1\r\n"_ba + QByteArray(64, '\0'),
          "OK 1\r\nl\2\1\1\xff\xff\xff\x07\1\0\0\0\0\0\0\0"_ba}) {
        QLocalServer server;
        ASSERT_TRUE(server.listen(folder.filePath(u"wrong"_s)));
        m_atSpi->setDirectAddress(u"unix:path="_s + server.fullServerName());
        QElapsedTimer time;
        time.start();
        bool isRead = true;
        std::thread import([&] { isRead = menuBar().has_value(); });
        ASSERT_TRUE(server.waitForNewConnection(10'000));
        QLocalSocket *other = server.nextPendingConnection();
        other->write(greeting);
        other->flush();
        import.join();
        EXPECT_FALSE(isRead);
        EXPECT_LT(time.elapsed(), 2000) << greeting.left(10).toStdString();
    }
}

TEST_F(AtSpiAccessibilityTest, WhoStopsAReadNeedNotWaitForIt)
{
    // At every step of the way: before it is known where the bus is, while it is silent, and while
    // the program is.
    const QTemporaryDir folder;
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(folder.filePath(u"silent"_s)));
    const auto check = [this](const char *step) {
        m_stop = std::stop_source();
        std::thread import([this, step] { EXPECT_FALSE(menuBar()) << step; });
        QTest::qSleep(300);
        QElapsedTimer time;
        time.start();
        m_stop.request_stop();
        import.join();
        EXPECT_LT(time.elapsed(), 300) << step;
    };
    m_atSpi->fallSilentAfter(m_atSpi->questions() + 10);
    check("the program");
    m_atSpi->setDirectAddress(u"unix:path="_s + silent.fullServerName());
    m_atSpi->fallSilentAfter(1 << 30);
    check("the program, asked directly");
    m_atSpi->setAddress(u"unix:path="_s + silent.fullServerName());
    m_accessibility.emplace(AtSpiAccessibility::MenuAt(), m_bus.connect(u"session"_s));
    check("the bus");
    m_accessibility.emplace(AtSpiAccessibility::MenuAt(), m_bus.connect(u"session"_s));
    m_atSpi->setAddressDelay(800);
    check("the address");
}

TEST_F(AtSpiAccessibilityTest, ALateAnswerIsTakenWhenItComes)
{
    m_atSpi->setEnabledSilently(true);
    m_atSpi->setStatusDelay(400);
    int changes = 0;
    const auto subscription = m_accessibility->onTrustChange([&] { ++changes; });
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(m_accessibility->isTrusted());
    EXPECT_LT(time.elapsed(), 350) << "the start of the program does not wait longer";
    EXPECT_FALSE(m_accessibility->isTrusted());
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 1; }));
    EXPECT_TRUE(m_accessibility->isTrusted());
    QTest::qWait(500);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(m_atSpi->statusQuestions(), 2) << "the one that was waited for, and one without end";
}

TEST_F(AtSpiAccessibilityTest, WhoMayWaitGetsALateAnswer)
{
    m_atSpi->setEnabledSilently(true);
    m_atSpi->setStatusDelay(400);
    const auto wait = [this](const std::stop_token &stop) {
        std::atomic<int> answer = -1;
        std::thread import([&] { answer = m_accessibility->waitForTrust(stop) ? 1 : 0; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return answer >= 0; }, 10'000));
        import.join();
        return answer == 1;
    };
    EXPECT_TRUE(wait({})) << "nobody has asked before";
    EXPECT_TRUE(m_accessibility->isTrusted());
    m_accessibility.emplace(AtSpiAccessibility::MenuAt(), m_bus.connect(u"session"_s));
    EXPECT_FALSE(m_accessibility->isTrusted());
    EXPECT_TRUE(wait({})) << "a question is under way";
    m_atSpi->setStatusDelay(4000);
    m_accessibility.emplace(AtSpiAccessibility::MenuAt(), m_bus.connect(u"session"_s));
    QElapsedTimer time;
    time.start();
    std::stop_source stop;
    stop.request_stop();
    EXPECT_FALSE(wait(stop.get_token()));
    EXPECT_LT(time.restart(), 1000);
    EXPECT_FALSE(wait({}));
    EXPECT_GE(time.elapsed(), 2400);
    EXPECT_LT(time.elapsed(), 3900) << "not for ever";
}

TEST_F(AtSpiAccessibilityTest, AServiceThatComesLaterIsAsked)
{
    int changes = 0;
    const auto subscription = m_accessibility->onTrustChange([&] { ++changes; });
    EXPECT_FALSE(m_accessibility->isTrusted());
    m_atSpi.reset();
    QTest::qWait(100);
    EXPECT_EQ(changes, 0);
    m_atSpi.emplace(m_bus, true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 1; }));
    EXPECT_TRUE(m_accessibility->isTrusted());
    m_atSpi.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 2; }));
    EXPECT_FALSE(m_accessibility->isTrusted()) << "it has gone";
}

TEST_F(AtSpiAccessibilityTest, ItemsAtPlacesBeyondAnyScreenAreNowhere)
{
    m_menuOwner = static_cast<std::int32_t>(QCoreApplication::applicationPid());
    constexpr int largest = std::numeric_limits<int>::max();
    m_atSpi->set(u"new"_s, {.name = u"New"_s, .extents = QRect(0, 20, largest, 20)});
    m_atSpi->set(u"clear"_s, {.name = u"Clear"_s, .extents = QRect(-largest, 20, 100, 20)});
    EXPECT_NE(m_accessibility->elementAtPosition(50, 30).error, 0);
}

TEST_F(AtSpiAccessibilityTest, AClickOutsideMenusAsksNobody)
{
    EXPECT_NE(m_accessibility->elementAtPosition(50, 30).error, 0);
    EXPECT_EQ(m_atSpi->questions(), 0);
}

} // namespace hmatnik::platform
