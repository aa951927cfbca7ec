#pragma once

#include "platform/linux/shortcuts/Owned.h"

namespace hmatnik::platform {

/// Asks services on the person's session bus and waits for their answers.
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
