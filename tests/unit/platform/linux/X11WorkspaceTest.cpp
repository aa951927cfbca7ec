#include "platform/linux/X11Workspace.h"

#include "XServer.h"

#include <QCoreApplication>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

namespace {

using Active = std::optional<RunningApplication>;

/// Puts windows on the screen and says which is active, as applications and a window manager do.
class Others
{
public:
    Others()
        : connection(X11Connection::open())
    {
    }

    xcb_window_t window(
        std::optional<std::uint32_t> process, const QByteArray &windowClass,
        const QByteArray &machine = QSysInfo::machineHostName().toUtf8()) const
    {
        const xcb_window_t id = xcb_generate_id(connection->raw());
        xcb_create_window(
            connection->raw(), XCB_COPY_FROM_PARENT, id, connection->root(), 0, 0, 10, 10, 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        if (process)
            setNumber(id, "_NET_WM_PID", *process);
        setText(id, "WM_CLIENT_MACHINE", machine);
        setText(id, "WM_CLASS", windowClass);
        flush();
        return id;
    }
    void setNumber(xcb_window_t window, const QByteArray &name, std::uint32_t value) const
    {
        xcb_change_property(
            connection->raw(), XCB_PROP_MODE_REPLACE, window, connection->atom(name),
            XCB_ATOM_CARDINAL, 32, 1, &value);
    }
    void setText(xcb_window_t window, const QByteArray &name, const QByteArray &text) const
    {
        xcb_change_property(
            connection->raw(), XCB_PROP_MODE_REPLACE, window, connection->atom(name),
            XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()), text.constData());
    }
    /// Says that there is a window manager, by a window of its own, which it gives.
    xcb_window_t manage() const
    {
        const xcb_window_t own = window(1, "manager\0Manager"_ba);
        for (const xcb_window_t place : {connection->root(), own})
            setNumber(place, "_NET_SUPPORTING_WM_CHECK", own);
        flush();
        return own;
    }
    void setSupported(const std::vector<const char *> &names) const
    {
        std::vector<xcb_atom_t> atoms;
        atoms.reserve(names.size());
        for (const char *name : names)
            atoms.push_back(connection->atom(name));
        xcb_change_property(
            connection->raw(), XCB_PROP_MODE_REPLACE, connection->root(),
            connection->atom("_NET_SUPPORTED"), XCB_ATOM_ATOM, 32,
            static_cast<std::uint32_t>(atoms.size()), atoms.data());
        flush();
    }
    xcb_window_t focus() const
    {
        return connection->reply(xcb_get_input_focus_reply, xcb_get_input_focus(connection->raw()))
            ->focus;
    }
    void activate(xcb_window_t window) const
    {
        setNumber(connection->root(), "_NET_ACTIVE_WINDOW", window);
        flush();
    }
    void close(xcb_window_t window) const
    {
        xcb_destroy_window(connection->raw(), window);
        flush();
    }
    /// Returns when the server has carried out everything asked before.
    void flush() const
    {
        connection->reply(xcb_get_input_focus_reply, xcb_get_input_focus(connection->raw()));
    }

    std::shared_ptr<X11Connection> connection;
};

/// Lets everything that has happened so far arrive.
void settle()
{
    QTest::qWait(50);
}

} // namespace

class X11WorkspaceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_server.isRunning()) << "Xvfb is missing";
        QFile entry(m_folder.filePath(u"editor.desktop"_s));
        ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
        entry.write("[Desktop Entry]\nName=Editor textu\nStartupWMClass=Editor\n");
        entry.close();
        m_others.emplace();
        ASSERT_TRUE(m_others->connection);
    }
    X11Workspace workspace()
    {
        return X11Workspace(X11Connection::open(), DesktopEntries({m_folder.path()}));
    }

    test::XServer m_server;
    QTemporaryDir m_folder;
    std::optional<Others> m_others;
};

TEST_F(X11WorkspaceTest, WithoutAWindowManagerNothingIsInFront)
{
    auto workspace = this->workspace();
    EXPECT_TRUE(workspace.availability().available);
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
    EXPECT_EQ(workspace.ownProcessIdentifier(), QCoreApplication::applicationPid());
}

TEST_F(X11WorkspaceTest, FollowsTheActiveWindow)
{
    const auto editor = m_others->window(1234, "editor\0Editor"_ba);
    const auto other = m_others->window(77, "other\0Other"_ba);
    m_others->activate(editor);
    auto workspace = this->workspace();
    EXPECT_EQ(workspace.frontmostApplication(), (RunningApplication{u"Editor textu"_s, 1234}));

    std::vector<Active> seen;
    auto subscription =
        workspace.onActivation([&](const Active &active) { seen.push_back(active); });
    settle();
    EXPECT_TRUE(seen.empty()) << "what was active before is no news";
    m_others->activate(other);
    settle();
    m_others->activate(XCB_WINDOW_NONE);
    settle();
    m_others->activate(editor);
    settle();
    EXPECT_EQ(
        seen,
        (std::vector<Active>{
            RunningApplication{u"Other"_s, 77}, RunningApplication{u"Editor textu"_s, 1234}}));
    subscription.cancel();
    m_others->activate(other);
    settle();
    EXPECT_EQ(seen.size(), 2U);
}

TEST_F(X11WorkspaceTest, FollowsWhatTheActiveWindowTellsOfItsApplication)
{
    const auto office = m_others->window(1234, "office\0office"_ba);
    const auto other = m_others->window(77, "other\0Other"_ba);
    m_others->activate(office);
    auto workspace = this->workspace();
    std::vector<Active> seen;
    const auto subscription =
        workspace.onActivation([&](const Active &active) { seen.push_back(active); });
    const auto rename = [&](xcb_window_t window, const QByteArray &name, const QByteArray &text) {
        seen.clear();
        m_others->setText(window, name, text);
        m_others->flush();
        settle();
    };
    const auto application = [](const QString &name, std::int32_t process) {
        return std::vector<Active>{RunningApplication{name, process}};
    };
    rename(office, "WM_CLASS", "office\0office-writer"_ba);
    EXPECT_EQ(seen, application(u"office-writer"_s, 1234)) << "active at the start";
    rename(office, "_GTK_APPLICATION_ID", "editor");
    EXPECT_EQ(seen, application(u"Editor textu"_s, 1234));
    rename(office, "WM_NAME", "A title");
    EXPECT_TRUE(seen.empty());
    rename(other, "WM_CLASS", "other\0Another"_ba);
    EXPECT_TRUE(seen.empty()) << "not in front";

    m_others->activate(other);
    settle();
    EXPECT_EQ(seen, application(u"Another"_s, 77));
    rename(other, "WM_CLASS", "other\0Third"_ba);
    EXPECT_EQ(seen, application(u"Third"_s, 77));
    rename(office, "WM_CLASS", "office\0office-calc"_ba);
    EXPECT_TRUE(seen.empty()) << "no longer in front";
    m_others->activate(m_others->connection->root());
    settle();
    seen.clear();
    m_others->activate(other);
    settle();
    EXPECT_EQ(seen, application(u"Third"_s, 77)) << "the root window is still listened to";
}

TEST_F(X11WorkspaceTest, ABurstEndsWithTheLast)
{
    std::vector<xcb_window_t> windows;
    for (std::uint32_t process = 1; process <= 50; ++process)
        windows.push_back(m_others->window(process, "a\0A"_ba));
    auto workspace = this->workspace();
    std::vector<Active> seen;
    const auto subscription =
        workspace.onActivation([&](const Active &active) { seen.push_back(active); });
    for (const auto window : windows)
        m_others->activate(window);
    settle();
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.back(), (RunningApplication{u"A"_s, 50}));
    EXPECT_EQ(workspace.frontmostApplication(), (RunningApplication{u"A"_s, 50}));
}

TEST_F(X11WorkspaceTest, EventsThatArriveDuringAQuestionAreNotLost)
{
    const auto first = m_others->window(1, "a\0A"_ba);
    auto workspace = this->workspace();
    int calls = 0;
    const auto subscription = workspace.onActivation([&](const Active &) { ++calls; });
    m_others->activate(first);
    // The reply brings the event along; the socket is silent afterwards.
    EXPECT_EQ(workspace.frontmostApplication()->processIdentifier, 1);
    settle();
    EXPECT_EQ(calls, 1);
}

TEST_F(X11WorkspaceTest, WindowsThatVanishOrTellNothingDoNoHarm)
{
    auto workspace = this->workspace();
    const auto closed = m_others->window(5, "a\0A"_ba);
    m_others->activate(closed);
    m_others->close(closed);
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
    m_others->activate(0xFFFFFFFF);
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
    m_others->setText(m_others->connection->root(), "_NET_ACTIVE_WINDOW", "x");
    m_others->flush();
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);

    m_others->activate(m_others->window(9, ""_ba));
    EXPECT_EQ(workspace.frontmostApplication(), (RunningApplication{std::nullopt, 9}));
    for (const std::uint32_t process : {0U, 0x80000000U, 0xFFFFFFFFU}) {
        m_others->activate(m_others->window(process, "a\0A"_ba));
        EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
    }
    m_others->activate(m_others->window(1, "a\0A"_ba, "another-machine"));
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
}

TEST_F(X11WorkspaceTest, HostilePropertiesAreBounded)
{
    auto workspace = this->workspace();
    m_others->activate(m_others->window(3, "\xff\xfe\x01\0\xc3\x28\n"_ba));
    EXPECT_EQ(workspace.frontmostApplication()->processIdentifier, 3);
    m_others->activate(m_others->window(4, "i\0"_ba + QByteArray(200000, 'x')));
    const auto application = workspace.frontmostApplication();
    ASSERT_TRUE(application && application->localizedName);
    EXPECT_LE(application->localizedName->size(), 256);
}

TEST_F(X11WorkspaceTest, ALongNameIsCutAfterAWholeCharacter)
{
    auto workspace = this->workspace();
    const QByteArray outsideTheBasicPlane = "\xF0\x9F\x98\x80"_ba;
    m_others->activate(
        m_others->window(4, "i\0"_ba + QByteArray(255, 'x') + outsideTheBasicPlane.repeated(9)));
    const auto application = workspace.frontmostApplication();
    ASSERT_TRUE(application && application->localizedName);
    EXPECT_EQ(*application->localizedName, QString(255, u'x'));
}

TEST_F(X11WorkspaceTest, AWindowWithoutANumberBelongsToWhoeverMadeIt)
{
    auto workspace = this->workspace();
    m_others->activate(m_others->window(std::nullopt, "editor\0Editor"_ba));
    EXPECT_EQ(
        workspace.frontmostApplication(),
        (RunningApplication{
            u"Editor textu"_s, static_cast<std::int32_t>(QCoreApplication::applicationPid())}));
}

TEST_F(X11WorkspaceTest, AsksForAWindowToComeToTheFrontAsThePersonNow)
{
    const auto window = m_others->window(1234, "editor\0Editor"_ba);
    auto workspace = this->workspace();
    X11Connection &manager = *m_others->connection;
    m_others->manage();
    EXPECT_FALSE(workspace.bringToFront(window)) << "one that knows no way to say so";
    m_others->setSupported({"_NET_CLIENT_LIST", "_NET_ACTIVE_WINDOW"});
    m_others->connection->selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    m_others->flush();
    std::vector<xcb_client_message_event_t> requests;
    const auto events = m_others->connection->onEvent([&](const xcb_generic_event_t &event) {
        if ((event.response_type & 0x7f) == XCB_CLIENT_MESSAGE)
            requests.push_back(reinterpret_cast<const xcb_client_message_event_t &>(event));
    });
    EXPECT_TRUE(workspace.bringToFront(window));
    QTest::qWait(300);
    EXPECT_TRUE(workspace.bringToFront(window));
    settle();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].window, window);
    EXPECT_EQ(requests[0].type, manager.atom("_NET_ACTIVE_WINDOW"));
    EXPECT_EQ(requests[0].data.data32[0], 2U) << "the person, not the program";
    EXPECT_GE(requests[1].data.data32[1] - requests[0].data.data32[1], 290U);
    EXPECT_LT(requests[1].data.data32[1] - requests[0].data.data32[1], 30000U);
}

TEST_F(X11WorkspaceTest, WithoutAWindowManagerItGivesTheKeyboardToTheWindowItself)
{
    const auto window = m_others->window(1234, "editor\0Editor"_ba);
    xcb_map_window(m_others->connection->raw(), window);
    m_others->flush();
    auto workspace = this->workspace();
    ASSERT_NE(m_others->focus(), window);
    EXPECT_TRUE(workspace.bringToFront(window));
    settle();
    EXPECT_EQ(m_others->focus(), window) << "there never was one";

    const auto manager = m_others->manage();
    m_others->setSupported({"_NET_ACTIVE_WINDOW"});
    xcb_set_input_focus(
        m_others->connection->raw(), XCB_INPUT_FOCUS_POINTER_ROOT, XCB_INPUT_FOCUS_POINTER_ROOT,
        XCB_CURRENT_TIME);
    EXPECT_TRUE(workspace.bringToFront(window));
    settle();
    EXPECT_NE(m_others->focus(), window) << "left to the window manager";

    // What it has said of itself is still there.
    m_others->close(manager);
    EXPECT_TRUE(workspace.bringToFront(window));
    settle();
    EXPECT_EQ(m_others->focus(), window) << "it has died";
}

TEST(X11ConnectionTest, GivesNothingWithoutADisplay)
{
    const QByteArray before = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    EXPECT_EQ(X11Connection::open(), nullptr);
    qputenv("DISPLAY", ":54321");
    EXPECT_EQ(X11Connection::open(), nullptr);
    if (before.isEmpty())
        qunsetenv("DISPLAY");
    else
        qputenv("DISPLAY", before);
}

TEST(X11ConnectionTest, ALostServerDoesNotKeepUsBusy)
{
    auto server = std::make_unique<test::XServer>();
    ASSERT_TRUE(server->isRunning());
    const auto connection = X11Connection::open();
    X11Workspace workspace(connection, DesktopEntries(QStringList{}));
    int idleRounds = 0;
    const auto subscription = connection->onIdle([&] { ++idleRounds; });
    server.reset();
    settle();
    EXPECT_LT(idleRounds, 5);
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
}

} // namespace hmatnik::platform
