// What a process holds of the X server, by kind, over all its connections.
//
//     hmatnik_x_resources PROCESS
//
// One line "KIND<tab>COUNT" for each kind ("WINDOW", "PIXMAP", …), and "connections<tab>COUNT".

#include <xcb/res.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>

namespace {

struct Free
{
    void operator()(void *answer) const { std::free(answer); }
};
template <typename Answer>
using Owned = std::unique_ptr<Answer, Free>;

[[noreturn]] void stop(const char *reason)
{
    std::fprintf(stderr, "hmatnik_x_resources: %s\n", reason);
    std::exit(2);
}

std::uint32_t processOf(xcb_connection_t *connection, std::uint32_t client)
{
    const xcb_res_client_id_spec_t question{client, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const Owned<xcb_res_query_client_ids_reply_t> answer(xcb_res_query_client_ids_reply(
        connection, xcb_res_query_client_ids(connection, 1, &question), nullptr));
    if (!answer)
        return 0;
    auto ids = xcb_res_query_client_ids_ids_iterator(answer.get());
    if (ids.rem == 0 || xcb_res_client_id_value_value_length(ids.data) == 0)
        return 0;
    return *xcb_res_client_id_value_value(ids.data);
}

std::string nameOf(xcb_connection_t *connection, xcb_atom_t atom)
{
    const Owned<xcb_get_atom_name_reply_t> answer(
        xcb_get_atom_name_reply(connection, xcb_get_atom_name(connection, atom), nullptr));
    if (!answer)
        return std::to_string(atom);
    return {
        xcb_get_atom_name_name(answer.get()),
        static_cast<std::size_t>(xcb_get_atom_name_name_length(answer.get()))};
}

} // namespace

int main(int argc, char *argv[])
{
    const auto process =
        argc == 2 ? static_cast<std::uint32_t>(std::strtoul(argv[1], nullptr, 10)) : 0;
    if (process == 0)
        stop("which process?");
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0)
        stop("there is no X server");
    const Owned<xcb_res_query_clients_reply_t> clients(
        xcb_res_query_clients_reply(connection, xcb_res_query_clients(connection), nullptr));
    if (!clients)
        stop("the X server does not tell");

    int connections = 0;
    std::map<std::string, std::uint32_t> counts;
    for (auto client = xcb_res_query_clients_clients_iterator(clients.get()); client.rem > 0;
         xcb_res_client_next(&client)) {
        const std::uint32_t base = client.data->resource_base;
        if (processOf(connection, base) != process)
            continue;
        const Owned<xcb_res_query_client_resources_reply_t> held(
            xcb_res_query_client_resources_reply(
                connection, xcb_res_query_client_resources(connection, base), nullptr));
        if (!held)
            continue; // disconnected meanwhile
        ++connections;
        for (auto type = xcb_res_query_client_resources_types_iterator(held.get()); type.rem > 0;
             xcb_res_type_next(&type))
            counts[nameOf(connection, type.data->resource_type)] += type.data->count;
    }
    std::printf("connections\t%d\n", connections);
    for (const auto &[kind, count] : counts)
        std::printf("%s\t%u\n", kind.c_str(), count);
    xcb_disconnect(connection);
    return 0;
}
