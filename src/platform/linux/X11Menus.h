#pragma once

#include "platform/linux/X11Connection.h"

#include <QPoint>

#include <cstdint>
#include <memory>
#include <optional>

namespace hmatnik::platform {

/// Knows where menus are open, from the kind that toolkits give their windows. Main thread only.
class X11Menus
{
public:
    explicit X11Menus(std::shared_ptr<X11Connection> connection)
        : m_connection(std::move(connection))
    {
    }

    /// The process whose menu is open at the point of the screen; none if what is on top there is
    /// no menu.
    std::optional<std::int32_t> ownerAt(QPoint position) const;

private:
    std::shared_ptr<X11Connection> m_connection;
};

} // namespace hmatnik::platform
