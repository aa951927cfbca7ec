#include "platform/linux/X11WindowProcess.h"

#include <QString>
#include <QSysInfo>

#include <xcb/res.h>

#include <limits>

namespace hmatnik::platform {

namespace {

std::optional<std::int32_t> asProcess(std::uint32_t number)
{
    if (number == 0 ||
        number > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max()))
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}

std::optional<std::int32_t> processAtOtherEnd(X11Connection &connection, xcb_window_t window)
{
    const auto *extension = xcb_get_extension_data(connection.raw(), &xcb_res_id);
    if (!extension || extension->present == 0)
        return std::nullopt;
    // The extension would answer for a window that has gone, too.
    if (!connection.reply(xcb_get_geometry_reply, xcb_get_geometry(connection.raw(), window)))
        return std::nullopt;
    const xcb_res_client_id_spec_t question{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto answer = connection.reply(
        xcb_res_query_client_ids_reply, xcb_res_query_client_ids(connection.raw(), 1, &question));
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

} // namespace

std::optional<std::int32_t> processOfWindow(X11Connection &connection, xcb_window_t window)
{
    const auto claimed = connection.number(window, "_NET_WM_PID");
    if (!claimed)
        return processAtOtherEnd(connection, window);
    const QByteArray machine = connection.property(window, "WM_CLIENT_MACHINE");
    if (!machine.isEmpty() && QString::fromUtf8(machine) != QSysInfo::machineHostName())
        return std::nullopt;
    return asProcess(*claimed);
}

} // namespace hmatnik::platform
