#include "platform/linux/X11Menus.h"

#include "platform/linux/X11WindowProcess.h"

#include <QByteArray>

#include <array>
#include <cstring>

namespace hmatnik::platform {

std::optional<std::int32_t> X11Menus::ownerAt(QPoint position) const
{
    xcb_connection_t *raw = m_connection->raw();
    const auto top = m_connection->reply(
        xcb_translate_coordinates_reply,
        xcb_translate_coordinates(
            raw, m_connection->root(), m_connection->root(),
            static_cast<std::int16_t>(position.x()), static_cast<std::int16_t>(position.y())));
    if (!top || top->child == XCB_WINDOW_NONE)
        return std::nullopt;
    const auto attributes = m_connection->reply(
        xcb_get_window_attributes_reply, xcb_get_window_attributes(raw, top->child));
    // A window manager leaves menus alone, so they stand on the root window themselves.
    if (!attributes || attributes->override_redirect == 0)
        return std::nullopt;
    const QByteArray types = m_connection->property(top->child, "_NET_WM_WINDOW_TYPE");
    const std::array menuTypes{
        m_connection->atom("_NET_WM_WINDOW_TYPE_POPUP_MENU"),
        m_connection->atom("_NET_WM_WINDOW_TYPE_DROPDOWN_MENU"),
        m_connection->atom("_NET_WM_WINDOW_TYPE_MENU")};
    for (qsizetype at = 0; at + 4 <= types.size(); at += 4) {
        xcb_atom_t type = XCB_ATOM_NONE;
        std::memcpy(&type, types.constData() + at, sizeof type);
        for (const xcb_atom_t menuType : menuTypes) {
            if (type == menuType)
                return processOfWindow(*m_connection, top->child);
        }
    }
    return std::nullopt;
}

} // namespace hmatnik::platform
