#pragma once

#include <gio/gio.h>

#include <memory>

namespace hmatnik::platform {

/// Gives back what GLib has handed out, each in the way of its type.
struct Unref
{
    void operator()(GDBusConnection *connection) const { g_object_unref(connection); }
    void operator()(GSettings *settings) const { g_object_unref(settings); }
    void operator()(GSettingsSchema *schema) const { g_settings_schema_unref(schema); }
    void operator()(GSettingsSchemaKey *key) const { g_settings_schema_key_unref(key); }
    void operator()(GVariant *value) const { g_variant_unref(value); }
    void operator()(gchar **list) const { g_strfreev(list); }
};
template <typename Type>
using Owned = std::unique_ptr<Type, Unref>;

} // namespace hmatnik::platform
