#include "XServer.h"
#include "platform/linux/X11HotKeys.h"
#include "platform/linux/X11KeyboardLayout.h"
#include "platform/linux/X11Menus.h"
#include "platform/linux/X11MouseMonitor.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>
#include <xcb/xinput.h>

#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

namespace {

/// Moves the pointer, presses buttons and keys as a person would.
void act(const QString &what)
{
    ASSERT_EQ(QProcess::execute(u"xdotool"_s, what.split(u' ')), 0) << "xdotool is missing";
    QTest::qWait(60);
}

std::optional<std::int32_t> ownerAt(const X11Menus &menus, QPoint position)
{
    const auto menu = menus.menuAt(position);
    return menu ? std::optional(menu->process) : std::nullopt;
}

} // namespace

class X11InputTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_server.isRunning()) << "Xvfb is missing";
        m_others = X11Connection::open();
        m_connection = X11Connection::open();
        ASSERT_TRUE(m_others && m_connection);
    }

    xcb_window_t window(
        const QRect &place, std::uint32_t process, bool isUnmanaged = false,
        const QByteArray &type = {}, xcb_window_t parent = 0) const
    {
        xcb_connection_t *raw = m_others->raw();
        const xcb_window_t id = xcb_generate_id(raw);
        const std::uint32_t unmanaged = isUnmanaged ? 1 : 0;
        xcb_create_window(
            raw, XCB_COPY_FROM_PARENT, id, parent != 0 ? parent : m_others->root(),
            static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()),
            static_cast<std::uint16_t>(place.width()), static_cast<std::uint16_t>(place.height()),
            0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
            &unmanaged);
        xcb_change_property(
            raw, XCB_PROP_MODE_REPLACE, id, m_others->atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1,
            &process);
        if (!type.isEmpty()) {
            const xcb_atom_t atom = m_others->atom(type);
            xcb_change_property(
                raw, XCB_PROP_MODE_REPLACE, id, m_others->atom("_NET_WM_WINDOW_TYPE"),
                XCB_ATOM_ATOM, 32, 1, &atom);
        }
        xcb_map_window(raw, id);
        m_others->reply(xcb_get_input_focus_reply, xcb_get_input_focus(raw));
        return id;
    }

    /// For the device from which the buttons come that xdotool presses.
    void swapButtonsOfDevices() const
    {
        constexpr xcb_input_device_id_t testDevice = 4;
        const auto known = m_others->reply(
            xcb_input_get_device_button_mapping_reply,
            xcb_input_get_device_button_mapping(m_others->raw(), testDevice));
        ASSERT_TRUE(known);
        const std::uint8_t *map = xcb_input_get_device_button_mapping_map(known.get());
        std::vector<std::uint8_t> swapped(
            map, map + xcb_input_get_device_button_mapping_map_length(known.get()));
        std::swap(swapped.at(0), swapped.at(2));
        const auto answer = m_others->reply(
            xcb_input_set_device_button_mapping_reply,
            xcb_input_set_device_button_mapping(
                m_others->raw(), testDevice, static_cast<std::uint8_t>(swapped.size()),
                swapped.data()));
        ASSERT_TRUE(answer && answer->status == XCB_MAPPING_STATUS_SUCCESS);
    }

    test::XServer m_server;
    std::shared_ptr<X11Connection> m_others;
    std::shared_ptr<X11Connection> m_connection;
};

TEST_F(X11InputTest, HearsLeftPressesOnceWhereverTheyGo)
{
    X11MouseMonitor monitor(m_connection);
    EXPECT_TRUE(monitor.availability().available);
    window(QRect(0, 0, 200, 200), 1);
    std::vector<QPointF> presses;
    auto subscription =
        monitor.monitorLeftPresses([&](QPointF position) { presses.push_back(position); });
    ASSERT_TRUE(subscription);
    act(u"mousemove 50 60 click 1"_s);
    EXPECT_EQ(presses, (std::vector<QPointF>{{50, 60}}));
    act(u"mousemove 700 500 click 1"_s);
    EXPECT_EQ(presses, (std::vector<QPointF>{{50, 60}, {700, 500}}));
    act(u"click 3 click 2 click 4 key a"_s);
    EXPECT_EQ(presses.size(), 2U) << "only the left button";
    act(u"mousedown 1"_s);
    EXPECT_EQ(presses.size(), 3U) << "the press is what counts";
    act(u"mouseup 1"_s);
    EXPECT_EQ(presses.size(), 3U);
    subscription.cancel();
    act(u"click 1"_s);
    EXPECT_EQ(presses.size(), 3U);
}

TEST_F(X11InputTest, TheLeftButtonIsTheOneThatThePersonUsesAsSuch)
{
    X11MouseMonitor monitor(m_connection);
    int presses = 0;
    const auto subscription = monitor.monitorLeftPresses([&](QPointF) { ++presses; });
    const auto setMapping = [](const QString &numbers) {
        ASSERT_EQ(QProcess::execute(u"xmodmap"_s, {u"-e"_s, u"pointer = "_s + numbers}), 0)
            << "xmodmap is missing";
    };
    setMapping(u"3 2 1"_s);
    act(u"mousemove 50 60 click 1"_s);
    EXPECT_EQ(presses, 0) << "the secondary button now";
    act(u"click 3"_s);
    EXPECT_EQ(presses, 1);
    swapButtonsOfDevices();
    act(u"click 3"_s);
    EXPECT_EQ(presses, 1) << "swapped twice";
    act(u"click 1"_s);
    EXPECT_EQ(presses, 2);
    setMapping(u"1 2 3"_s);
    act(u"click 1"_s);
    EXPECT_EQ(presses, 2) << "swapped for the device alone";
    act(u"click 3"_s);
    EXPECT_EQ(presses, 3);
}

TEST_F(X11InputTest, HearsPressesWhileAnotherProgramHoldsTheMouse)
{
    X11MouseMonitor monitor(m_connection);
    const auto menu = window(QRect(0, 0, 200, 200), 1);
    const auto held = m_others->reply(
        xcb_grab_pointer_reply,
        xcb_grab_pointer(
            m_others->raw(), 1, menu, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC,
            XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME));
    ASSERT_TRUE(held && held->status == XCB_GRAB_STATUS_SUCCESS);
    int presses = 0;
    const auto subscription = monitor.monitorLeftPresses([&](QPointF) { ++presses; });
    act(u"mousemove 50 60 click 1"_s);
    EXPECT_EQ(presses, 1);
}

TEST_F(X11InputTest, OwnWindowsAreLeftOut)
{
    X11MouseMonitor monitor(m_connection);
    const auto own = static_cast<std::uint32_t>(QCoreApplication::applicationPid());
    const auto frame = window(QRect(0, 0, 200, 200), 1);
    window(QRect(10, 10, 100, 100), own, false, {}, frame);
    int presses = 0;
    const auto subscription = monitor.monitorLeftPresses([&](QPointF) { ++presses; });
    act(u"mousemove 50 60 click 1"_s);
    EXPECT_EQ(presses, 0) << "ours inside a window manager's frame";
    act(u"mousemove 150 150 click 1"_s);
    EXPECT_EQ(presses, 1);
}

TEST_F(X11InputTest, ListeningStartsWithTheFirstAndEndsWithTheLast)
{
    X11MouseMonitor monitor(m_connection);
    int events = 0;
    const auto counter = m_connection->onEvent([&](const xcb_generic_event_t &) { ++events; });
    act(u"mousemove 50 60 click 1"_s);
    EXPECT_EQ(events, 0) << "nothing is installed while nobody listens";
    int first = 0;
    int second = 0;
    auto one = monitor.monitorLeftPresses([&](QPointF) { ++first; });
    auto two = monitor.monitorLeftPresses([&](QPointF) { ++second; });
    act(u"click 1"_s);
    one.cancel();
    act(u"click 1"_s);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    two.cancel();
    events = 0;
    act(u"click 1"_s);
    EXPECT_EQ(events, 0);
    EXPECT_TRUE(monitor.monitorLeftPresses([](QPointF) {}));
}

TEST_F(X11InputTest, AMenuThatClosesAtTheClickIsStillKnown)
{
    const auto menus = std::make_shared<X11Menus>(m_connection);
    std::vector<std::int32_t> opened;
    menus->setOpenHandler([&](std::int32_t process) { opened.push_back(process); });
    X11MouseMonitor monitor(m_connection, menus);
    const auto before = window(QRect(300, 0, 100, 100), 11, true, "_NET_WM_WINDOW_TYPE_MENU");
    QTest::qWait(60);
    EXPECT_TRUE(opened.empty()) << "nobody listens";

    std::vector<std::optional<std::int32_t>> owners;
    const auto own = static_cast<std::uint32_t>(QCoreApplication::applicationPid());
    auto subscription = monitor.monitorLeftPresses(
        [&](QPointF position) { owners.push_back(ownerAt(*menus, position.toPoint())); });
    window(QRect(0, 0, 100, 100), own, true, "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU");
    const auto menu = window(QRect(50, 0, 100, 100), 12, true, "_NET_WM_WINDOW_TYPE_POPUP_MENU");
    QTest::qWait(60);
    EXPECT_EQ(opened, (std::vector<std::int32_t>{12}));
    const auto press = [&](const QString &where, std::initializer_list<xcb_window_t> closing = {}) {
        owners.clear();
        // The server hears both before we hear of either.
        const QString command = u"mousemove "_s + where + u" click 1"_s;
        ASSERT_EQ(QProcess::execute(u"xdotool"_s, command.split(u' ')), 0);
        for (const xcb_window_t closed : closing)
            xcb_unmap_window(m_others->raw(), closed);
        m_others->reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_others->raw()));
        QTest::qWait(60);
    };
    using Owners = std::vector<std::optional<std::int32_t>>;
    press(u"120 20"_s);
    EXPECT_EQ(owners, (Owners{12}));
    press(u"600 500"_s);
    EXPECT_EQ(owners, (Owners{std::nullopt}));
    press(u"20 20"_s);
    EXPECT_EQ(owners, Owners()) << "a menu of our own";
    press(u"350 20"_s);
    EXPECT_EQ(owners, (Owners{11})) << "it was open before anybody listened";
    const auto cover = window(QRect(100, 0, 50, 50), 13, true, "_NET_WM_WINDOW_TYPE_TOOLTIP");
    press(u"120 20"_s);
    EXPECT_EQ(owners, (Owners{std::nullopt})) << "something lies on the menu";
    press(u"80 20"_s, {menu, before, cover});
    EXPECT_EQ(owners, (Owners{12})) << "it has closed since";
    EXPECT_EQ(menus->menuAt({80, 20}), (OpenMenu{12, QRect(50, 0, 100, 100)}));
    press(u"120 20"_s);
    EXPECT_EQ(owners, (Owners{std::nullopt})) << "it was closed before";
}

TEST_F(X11InputTest, KnowsWhereMenusAreOpen)
{
    const X11Menus menus(m_connection);
    EXPECT_EQ(ownerAt(menus, {10, 10}), std::nullopt);
    window(QRect(0, 0, 100, 100), 11, true, "_NET_WM_WINDOW_TYPE_POPUP_MENU");
    window(QRect(100, 0, 100, 100), 12, true, "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU");
    window(QRect(200, 0, 100, 100), 13, true, "_NET_WM_WINDOW_TYPE_TOOLTIP");
    window(QRect(300, 0, 100, 100), 14, false, "_NET_WM_WINDOW_TYPE_MENU");
    window(QRect(400, 0, 100, 100), 15, true);
    EXPECT_EQ(ownerAt(menus, {10, 10}), 11);
    EXPECT_EQ(menus.menuAt({110, 10}), (OpenMenu{12, QRect(100, 0, 100, 100)}));
    EXPECT_EQ(ownerAt(menus, {210, 10}), std::nullopt) << "a tooltip";
    EXPECT_EQ(ownerAt(menus, {310, 10}), std::nullopt) << "a window that stays";
    EXPECT_EQ(ownerAt(menus, {410, 10}), std::nullopt) << "of no kind";
    const auto popup = window(QRect(500, 0, 100, 100), 16, true, "_NET_WM_WINDOW_TYPE_NORMAL");
    EXPECT_EQ(ownerAt(menus, {510, 10}), std::nullopt) << "of no other window";
    const xcb_window_t root = m_others->root();
    xcb_change_property(
        m_others->raw(), XCB_PROP_MODE_REPLACE, popup, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW,
        32, 1, &root);
    m_others->reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_others->raw()));
    EXPECT_EQ(ownerAt(menus, {510, 10}), 16) << "as Qt 6 shows a menu again";
    EXPECT_EQ(ownerAt(menus, {600, 500}), std::nullopt);
    EXPECT_EQ(ownerAt(menus, {-50, 100000}), std::nullopt);
    window(QRect(0, 0, 50, 50), 16, true, "_NET_WM_WINDOW_TYPE_TOOLTIP");
    EXPECT_EQ(ownerAt(menus, {10, 10}), std::nullopt) << "something lies on top";
}

TEST_F(X11InputTest, TheHotKeyWorksWithEveryLock)
{
    X11HotKeys hotKeys(m_connection);
    int calls = 0;
    auto subscription = hotKeys.registerControlOptionSpace([&] { ++calls; });
    ASSERT_TRUE(subscription);
    act(u"key ctrl+alt+space"_s);
    EXPECT_EQ(calls, 1);
    act(u"key Num_Lock"_s);
    act(u"key ctrl+alt+space"_s);
    EXPECT_EQ(calls, 2);
    act(u"key Caps_Lock"_s);
    act(u"key ctrl+alt+space"_s);
    EXPECT_EQ(calls, 3);
    act(u"key Num_Lock"_s);
    act(u"key ctrl+alt+space"_s);
    EXPECT_EQ(calls, 4);
    act(u"key Caps_Lock"_s);
    for (const QString &other :
         {u"key ctrl+space"_s, u"key alt+space"_s, u"key space"_s, u"key ctrl+alt+shift+space"_s,
          u"key ctrl+alt+a"_s})
        act(other);
    EXPECT_EQ(calls, 4);
    subscription.cancel();
    act(u"key ctrl+alt+space"_s);
    EXPECT_EQ(calls, 4);
}

TEST_F(X11InputTest, AHeldHotKeyCountsOnce)
{
    X11HotKeys hotKeys(m_connection);
    int calls = 0;
    const auto subscription = hotKeys.registerControlOptionSpace([&] { ++calls; });
    int presses = 0;
    const auto counter = m_connection->onEvent([&](const xcb_generic_event_t &event) {
        presses += (event.response_type & 0x7f) == XCB_KEY_PRESS ? 1 : 0;
    });
    act(u"keydown ctrl keydown alt keydown space"_s);
    QTest::qWait(1200); // the keyboard repeats after some two thirds of a second
    act(u"keyup space keyup alt keyup ctrl"_s);
    EXPECT_GT(presses, 1) << "the keyboard did not repeat";
    EXPECT_EQ(calls, 1);
    act(u"key ctrl+alt+space"_s);
    EXPECT_EQ(calls, 2);
}

TEST_F(X11InputTest, AHotKeyThatIsTakenIsLeftAlone)
{
    X11HotKeys theirs(m_others);
    int theirCalls = 0;
    auto taken = theirs.registerControlOptionSpace([&] { ++theirCalls; });
    ASSERT_TRUE(taken);
    X11HotKeys ours(m_connection);
    EXPECT_FALSE(ours.registerControlOptionSpace([] {}));
    act(u"key ctrl+alt+space"_s);
    EXPECT_EQ(theirCalls, 1);
    taken.cancel();
    EXPECT_TRUE(ours.registerControlOptionSpace([] {}));
}

TEST_F(X11InputTest, TheHotKeySurvivesANewLayout)
{
    X11HotKeys hotKeys(m_connection);
    int calls = 0;
    const auto subscription = hotKeys.registerControlOptionSpace([&] { ++calls; });
    ASSERT_EQ(QProcess::execute(u"setxkbmap"_s, {u"cz"_s}), 0) << "setxkbmap is missing";
    QTest::qWait(300);
    act(u"key ctrl+alt+space"_s);
    EXPECT_EQ(calls, 1);
}

TEST_F(X11InputTest, KnowsWhichKeysAreForTheDesktop)
{
    X11KeyboardLayout layout;
    const auto key = [&layout](std::uint32_t place, std::uint32_t modifiers = 0) {
        return layout.characters(place, modifiers);
    };
    constexpr std::uint32_t control = XCB_MOD_MASK_CONTROL;
    constexpr std::uint32_t alt = XCB_MOD_MASK_1;
    constexpr std::uint32_t print = 107;
    for (const std::uint32_t place : {121U, 122U, 123U, 172U, 232U, 233U, print})
        EXPECT_TRUE(key(place).isForDesktop) << place;
    // With Alt it is another key by name, not by what it is for.
    EXPECT_TRUE(key(print, alt).isForDesktop);
    constexpr std::uint32_t escape = 9;
    constexpr std::uint32_t f5 = 71;
    for (const std::uint32_t place : {escape, f5, 36U, 119U, 127U})
        EXPECT_FALSE(key(place).isForDesktop) << place;
    // Together they switch to another console, if anything does.
    EXPECT_FALSE(key(f5, control | alt).isForDesktop);
    EXPECT_EQ(key(escape).plain, u"\x1b"_s);
    EXPECT_EQ(key(f5).plain, QString());
}

} // namespace hmatnik::platform
