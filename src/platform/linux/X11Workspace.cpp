#include "platform/linux/X11Workspace.h"

#include "platform/linux/TextBeginning.h"
#include "platform/linux/X11WindowProcess.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype maximumNameLength = 256;
/// Who asks for a window to be activated (EWMH, source indication): the person themselves.
constexpr std::uint32_t directAction = 2;
// By these the toolkits name the application.
constexpr const char *gtkApplicationId = "_GTK_APPLICATION_ID";
constexpr const char *kdeDesktopFile = "_KDE_NET_WM_DESKTOP_FILE";

QString asText(const QByteArray &bytes)
{
    return beginning(QString::fromUtf8(bytes).simplified(), maximumNameLength);
}

} // namespace

X11Workspace::X11Workspace(std::shared_ptr<X11Connection> connection, const DesktopEntries &entries)
    : m_connection(std::move(connection))
    , m_entries(entries)
{
    m_events = m_connection->onEvent([this](const xcb_generic_event_t &event) {
        if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
            return;
        const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (tellsOfApplication(change))
            m_hasChanged = true;
    });
    // One look after a burst of changes: only the last of them still holds.
    m_idle = m_connection->onIdle([this] { followActivation(); });
    m_connection->selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    watch(activeWindow());
    m_active = applicationOf(m_watched);
}

X11Workspace::~X11Workspace()
{
    watch(XCB_WINDOW_NONE);
}

std::optional<RunningApplication> X11Workspace::frontmostApplication()
{
    return applicationOf(activeWindow());
}

Subscription X11Workspace::onActivation(ActivationHandler handler)
{
    return m_handlers.add(std::move(handler));
}

/// A compositing manager owns a selection for as long as it runs.
bool X11Workspace::blendsWindows()
{
    const auto owner = m_connection->reply(
        xcb_get_selection_owner_reply,
        xcb_get_selection_owner(m_connection->raw(), m_connection->compositorAtom()));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

std::int32_t X11Workspace::ownProcessIdentifier() const
{
    return static_cast<std::int32_t>(QCoreApplication::applicationPid());
}

bool X11Workspace::bringToFront(std::uintptr_t window)
{
    // Over the toolkit's own connection it comes after all that the toolkit said about the window.
    const auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    const auto *toolkit =
        application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    xcb_connection_t *connection = toolkit ? toolkit->connection() : m_connection->raw();
    const auto id = static_cast<xcb_window_t>(window);
    const xcb_timestamp_t now = m_connection->serverTime();
    if (!hasWindowManager()) {
        // Nobody else gives the keyboard to a window then. The toolkit would go on asking a window
        // manager that it once knew.
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(connection, id, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        xcb_set_input_focus(connection, XCB_INPUT_FOCUS_POINTER_ROOT, id, now);
        xcb_flush(connection);
        return true;
    }
    if (!m_connection->hasAtom(m_connection->root(), "_NET_SUPPORTED", "_NET_ACTIVE_WINDOW"))
        return false;

    // A window manager that guards against programs which push themselves forward compares times:
    // the last that the toolkit has heard of may lie before what was typed elsewhere since.
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = id;
    message.type = m_connection->atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = directAction;
    message.data.data32[1] = now;
    xcb_send_event(
        connection, 0, m_connection->root(),
        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
        reinterpret_cast<const char *>(&message));
    xcb_flush(connection);
    return true;
}

void X11Workspace::followActivation()
{
    if (!std::exchange(m_hasChanged, false))
        return;
    const xcb_window_t window = activeWindow();
    // No window is active for a moment while one closes and the next comes forward.
    if (window == XCB_WINDOW_NONE)
        return;
    // First, so that no change falls between the look and the watch.
    watch(window);
    auto application = applicationOf(window);
    if (application == m_active)
        return;
    m_active = std::move(application);
    m_handlers.call(m_active);
}

/// What a window manager has said of itself stays behind when it dies; the window that it said it
/// with does not.
bool X11Workspace::hasWindowManager()
{
    const QByteArray check = "_NET_SUPPORTING_WM_CHECK";
    const auto window = m_connection->number(m_connection->root(), check);
    return window && m_connection->number(*window, check) == window;
}

QString X11Workspace::windowManagerName(X11Connection &connection)
{
    const QByteArray check = "_NET_SUPPORTING_WM_CHECK";
    const auto window = connection.number(connection.root(), check);
    if (!window || connection.number(*window, check) != window)
        return {};
    return QString::fromUtf8(connection.property(*window, "_NET_WM_NAME"));
}

xcb_window_t X11Workspace::activeWindow()
{
    return m_connection->number(m_connection->root(), "_NET_ACTIVE_WINDOW")
        .value_or(XCB_WINDOW_NONE);
}

/// Whether the answer to which application is in front may be another now.
bool X11Workspace::tellsOfApplication(const xcb_property_notify_event_t &change)
{
    if (change.window == m_connection->root())
        return change.atom == m_connection->atom("_NET_ACTIVE_WINDOW");
    // A window changes its title and its progress far more often.
    return change.window == m_watched &&
           (change.atom == XCB_ATOM_WM_CLASS || change.atom == XCB_ATOM_WM_CLIENT_MACHINE ||
            change.atom == m_connection->atom("_NET_WM_PID") ||
            change.atom == m_connection->atom(gtkApplicationId) ||
            change.atom == m_connection->atom(kdeDesktopFile));
}

/// Has changes of the window's properties reported, and no longer those of the one before.
void X11Workspace::watch(xcb_window_t window)
{
    if (window == m_watched)
        return;
    const auto select = [this](xcb_window_t of, std::uint32_t mask) {
        // What the root window reports is asked for elsewhere.
        if (of != XCB_WINDOW_NONE && of != m_connection->root())
            xcb_change_window_attributes(m_connection->raw(), of, XCB_CW_EVENT_MASK, &mask);
    };
    select(m_watched, XCB_EVENT_MASK_NO_EVENT);
    select(window, XCB_EVENT_MASK_PROPERTY_CHANGE);
    m_watched = window;
    xcb_flush(m_connection->raw());
}

std::optional<RunningApplication> X11Workspace::applicationOf(xcb_window_t window)
{
    if (window == XCB_WINDOW_NONE)
        return std::nullopt;
    const auto process = processOfWindow(*m_connection, window);
    if (!process)
        return std::nullopt;
    return RunningApplication{nameOf(window), *process};
}

std::optional<QString> X11Workspace::nameOf(xcb_window_t window)
{
    // Two texts, each closed by a null: the instance, then the class.
    const QList<QByteArray> names = m_connection->property(window, "WM_CLASS").split('\0');
    QByteArray applicationId = m_connection->property(window, gtkApplicationId);
    if (applicationId.isEmpty())
        applicationId = m_connection->property(window, kdeDesktopFile);
    const DesktopEntries::WindowIdentity identity{
        .windowClass = asText(names.value(1)),
        .instance = asText(names.value(0)),
        .applicationId = asText(applicationId)};
    if (auto name = m_entries.nameFor(identity))
        return name;
    for (const QString &name : {identity.windowClass, identity.instance}) {
        if (!name.isEmpty())
            return name;
    }
    return std::nullopt;
}

} // namespace hmatnik::platform
