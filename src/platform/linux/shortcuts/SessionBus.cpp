#include "platform/linux/shortcuts/SessionBus.h"

namespace hmatnik::platform {

namespace {

constexpr int answerMilliseconds = 3000;

} // namespace

SessionBus::SessionBus()
    : m_connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr))
{
    if (m_connection)
        g_dbus_connection_set_exit_on_close(m_connection.get(), FALSE);
}

Owned<GVariant> SessionBus::call(
    const char *service, const char *path, const char *interface, const char *method,
    GVariant *arguments, const char *type) const
{
    const Owned<GVariant> taken(arguments ? g_variant_ref_sink(arguments) : nullptr);
    if (!m_connection)
        return nullptr;
    return Owned<GVariant>(g_dbus_connection_call_sync(
        m_connection.get(), service, path, interface, method, taken.get(),
        type ? G_VARIANT_TYPE(type) : nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, answerMilliseconds,
        nullptr, nullptr));
}

} // namespace hmatnik::platform
