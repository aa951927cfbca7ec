#pragma once

#include <gio/gio.h>

#include <memory>

namespace hmatnik::platform {

struct UnrefVariant
{
    void operator()(GVariant *value) const { g_variant_unref(value); }
    void operator()(GDBusConnection *connection) const { g_object_unref(connection); }
};
template <typename Type>
using Owned = std::unique_ptr<Type, UnrefVariant>;

/// Asks services of the person's session and waits for their answers.
class SessionBus
{
public:
    SessionBus();

    /// The answer; null if there is none, or it is not of the type. Nobody is started for it.
    /// @param arguments a tuple or null, taken over if floating.
    /// @param type of the answer; null for any.
    Owned<GVariant> call(
        const char *service, const char *path, const char *interface, const char *method,
        GVariant *arguments, const char *type) const;

private:
    Owned<GDBusConnection> m_connection;
};

} // namespace hmatnik::platform
