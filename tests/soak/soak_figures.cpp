// SPDX-License-Identifier: MIT
#include "soak/soak_figures.h"

#include "process_figures.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include <xcb/res.h>

namespace pimloft::test {

namespace {

struct Free {
    void operator()(void *reply) const { std::free(reply); }
};
template <typename Type>
using Reply = std::unique_ptr<Type, Free>;

double entries(pid_t process, const char *folder) {
    std::error_code gone;
    double count = 0;
    for (std::filesystem::directory_iterator each("/proc/" + std::to_string(process) + '/' + folder, gone),
         end;
         !gone && each != end; each.increment(gone))
        ++count;
    return count;
}

xcb_atom_t atom(xcb_connection_t *connection, const char *name) {
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, false, std::uint16_t(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

}  // namespace

HoldingWatch::HoldingWatch(pid_t program)
    : program_(program), connection_(xcb_connect(nullptr, nullptr)), window_(atom(connection_, "WINDOW")),
      pixmap_(atom(connection_, "PIXMAP")) {
    // The server tells processes only to who knows this version.
    const Reply<xcb_res_query_version_reply_t> version(
        xcb_res_query_version_reply(connection_, xcb_res_query_version(connection_, 1, 2), nullptr));
}

HoldingWatch::~HoldingWatch() {
    xcb_disconnect(connection_);
}

Holding HoldingWatch::look(double second) {
    const bench::Memory memory = bench::memoryOf(program_);
    const std::vector<pid_t> children = bench::childrenOf(program_);
    double guardMemory = 0;
    double guardHandles = 0;
    for (const pid_t child : children) {
        guardMemory += bench::memoryOf(child).resident;
        guardHandles += entries(child, "fd");
    }
    const OnServer server = onServer();
    return {second,
            {memory.resident, memory.proportional, memory.privately, guardMemory, entries(program_, "fd"),
             guardHandles, entries(program_, "task"), double(children.size()), server.windows, server.pixmaps,
             server.resources, server.megabytes}};
}

bool HoldingWatch::belongs(std::uint32_t client) {
    const xcb_res_client_id_spec_t asked{client, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const Reply<xcb_res_query_client_ids_reply_t> reply(xcb_res_query_client_ids_reply(
        connection_, xcb_res_query_client_ids(connection_, 1, &asked), nullptr));
    if (!reply)
        return false;
    const auto first = xcb_res_query_client_ids_ids_iterator(reply.get());
    return first.rem > 0 && xcb_res_client_id_value_value_length(first.data) > 0 &&
           *xcb_res_client_id_value_value(first.data) == std::uint32_t(program_);
}

HoldingWatch::OnServer HoldingWatch::onServer() {
    OnServer sum;
    const Reply<xcb_res_query_clients_reply_t> clients(
        xcb_res_query_clients_reply(connection_, xcb_res_query_clients(connection_), nullptr));
    if (!clients)
        return sum;
    for (auto each = xcb_res_query_clients_clients_iterator(clients.get()); each.rem;
         xcb_res_client_next(&each)) {
        const std::uint32_t client = each.data->resource_base;
        if (!belongs(client))
            continue;
        const auto askedTypes = xcb_res_query_client_resources(connection_, client);
        const auto askedBytes = xcb_res_query_client_pixmap_bytes(connection_, client);
        const Reply<xcb_res_query_client_resources_reply_t> types(
            xcb_res_query_client_resources_reply(connection_, askedTypes, nullptr));
        const Reply<xcb_res_query_client_pixmap_bytes_reply_t> bytes(
            xcb_res_query_client_pixmap_bytes_reply(connection_, askedBytes, nullptr));
        if (bytes)
            sum.megabytes += (double(bytes->bytes_overflow) * 4294967296.0 + bytes->bytes) / 1e6;
        if (!types)
            continue;
        for (auto type = xcb_res_query_client_resources_types_iterator(types.get()); type.rem;
             xcb_res_type_next(&type)) {
            sum.resources += type.data->count;
            if (type.data->resource_type == window_)
                sum.windows += type.data->count;
            if (type.data->resource_type == pixmap_)
                sum.pixmaps += type.data->count;
        }
    }
    return sum;
}

}  // namespace pimloft::test
