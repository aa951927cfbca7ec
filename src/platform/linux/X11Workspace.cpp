#include "platform/linux/X11Workspace.h"

#include <QCoreApplication>
#include <QSysInfo>

#include <xcb/res.h>

#include <limits>
#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype maximumNameLength = 256;

std::optional<std::int32_t> asProcess(std::uint32_t number)
{
    if (number == 0 ||
        number > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max()))
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}

QString asText(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes).simplified().left(maximumNameLength);
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
        if (change.window == m_connection->root() &&
            change.atom == m_connection->atom("_NET_ACTIVE_WINDOW"))
            m_hasChanged = true;
    });
    // One look after a burst of changes: only the last of them still holds.
    m_idle = m_connection->onIdle([this] { followActivation(); });
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(
        m_connection->raw(), m_connection->root(), XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_connection->raw());
    m_active = frontmostApplication();
}

std::optional<RunningApplication> X11Workspace::frontmostApplication()
{
    return applicationOf(activeWindow());
}

Subscription X11Workspace::onActivation(ActivationHandler handler)
{
    return m_handlers.add(std::move(handler));
}

std::int32_t X11Workspace::ownProcessIdentifier() const
{
    return static_cast<std::int32_t>(QCoreApplication::applicationPid());
}

void X11Workspace::followActivation()
{
    if (!std::exchange(m_hasChanged, false))
        return;
    const xcb_window_t window = activeWindow();
    // No window is active for a moment while one closes and the next comes forward.
    if (window == XCB_WINDOW_NONE)
        return;
    auto application = applicationOf(window);
    if (application == m_active)
        return;
    m_active = std::move(application);
    m_handlers.call(m_active);
}

xcb_window_t X11Workspace::activeWindow()
{
    return m_connection->number(m_connection->root(), "_NET_ACTIVE_WINDOW")
        .value_or(XCB_WINDOW_NONE);
}

std::optional<RunningApplication> X11Workspace::applicationOf(xcb_window_t window)
{
    if (window == XCB_WINDOW_NONE)
        return std::nullopt;
    const auto process = processOf(window);
    if (!process)
        return std::nullopt;
    return RunningApplication{nameOf(window), *process};
}

std::optional<std::int32_t> X11Workspace::processOf(xcb_window_t window)
{
    const auto claimed = m_connection->number(window, "_NET_WM_PID");
    if (!claimed)
        return processAtOtherEnd(window);
    const QByteArray machine = m_connection->property(window, "WM_CLIENT_MACHINE");
    if (!machine.isEmpty() && asText(machine) != QSysInfo::machineHostName())
        return std::nullopt;
    return asProcess(*claimed);
}

std::optional<std::int32_t> X11Workspace::processAtOtherEnd(xcb_window_t window)
{
    const auto *extension = xcb_get_extension_data(m_connection->raw(), &xcb_res_id);
    if (!extension || extension->present == 0)
        return std::nullopt;
    // The extension would answer for a window that has gone, too.
    if (!m_connection->reply(xcb_get_geometry_reply, xcb_get_geometry(m_connection->raw(), window)))
        return std::nullopt;
    const xcb_res_client_id_spec_t question{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto answer = m_connection->reply(
        xcb_res_query_client_ids_reply,
        xcb_res_query_client_ids(m_connection->raw(), 1, &question));
    if (!answer)
        return std::nullopt;
    for (auto ids = xcb_res_query_client_ids_ids_iterator(answer.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        if ((ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0 &&
            xcb_res_client_id_value_value_length(ids.data) > 0)
            return asProcess(*xcb_res_client_id_value_value(ids.data));
    }
    return std::nullopt;
}

std::optional<QString> X11Workspace::nameOf(xcb_window_t window)
{
    // Two texts, each closed by a null: the instance, then the class.
    const QList<QByteArray> names = m_connection->property(window, "WM_CLASS").split('\0');
    QByteArray applicationId = m_connection->property(window, "_GTK_APPLICATION_ID");
    if (applicationId.isEmpty())
        applicationId = m_connection->property(window, "_KDE_NET_WM_DESKTOP_FILE");
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
