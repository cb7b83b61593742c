// SPDX-License-Identifier: MIT
#include "platform/workspace/x11_clients.h"

#include <xcb/res.h>

#include <algorithm>
#include <map>
#include <optional>

namespace pimloft {

namespace {

/// Longest property that is read here, in units of four bytes.
constexpr std::uint32_t longestProperty = 256;

xcb_get_property_cookie_t ask(X11Session &session, xcb_window_t window, const char *name) {
    return xcb_get_property(session.connection(), false, window, session.atom(name),
                            XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
}

XcbReply<xcb_get_property_reply_t> answer(X11Session &session, xcb_get_property_cookie_t cookie) {
    return XcbReply<xcb_get_property_reply_t>(xcb_get_property_reply(session.connection(), cookie, nullptr));
}

QByteArray bytes(const XcbReply<xcb_get_property_reply_t> &reply) {
    if (!reply || reply->format != 8)
        return {};
    return {static_cast<const char *>(xcb_get_property_value(reply.get())), qsizetype(reply->value_len)};
}

std::vector<xcb_atom_t> values(const XcbReply<xcb_get_property_reply_t> &reply) {
    if (!reply || reply->format != 32)
        return {};
    const auto *first = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

bool contains(const std::vector<xcb_atom_t> &list, xcb_atom_t atom) {
    return std::find(list.begin(), list.end(), atom) != list.end();
}

X11WindowNames names(const QByteArray &windowClass, const QByteArray &gtkApplicationId) {
    const QList<QByteArray> parts = windowClass.split('\0');
    // Some programs add blanks.
    return {.instance = QString::fromUtf8(parts.value(0)).trimmed(),
            .className = QString::fromUtf8(parts.value(1)).trimmed(),
            .gtkApplicationId = QString::fromUtf8(gtkApplicationId)};
}

std::optional<xcb_res_query_client_ids_cookie_t> askProcesses(X11Session &session) {
    if (!session.hasExtension(&xcb_res_id))
        return std::nullopt;
    const xcb_res_client_id_spec_t everyClient{XCB_NONE, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    return xcb_res_query_client_ids(session.connection(), 1, &everyClient);
}

/// Which process the server talks to, by the part of an id that all resources of one client share.
std::map<std::uint32_t, ProcessId> processes(X11Session &session,
                                             std::optional<xcb_res_query_client_ids_cookie_t> asked) {
    std::map<std::uint32_t, ProcessId> result;
    if (!asked)
        return result;
    const XcbReply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(session.connection(), *asked, nullptr));
    if (!reply)
        return result;
    for (auto each = xcb_res_query_client_ids_ids_iterator(reply.get()); each.rem;
         xcb_res_client_id_value_next(&each)) {
        const bool isPid = each.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID;
        const bool isServer = each.data->spec.client == XCB_NONE;
        if (isPid && !isServer && xcb_res_client_id_value_value_length(each.data) > 0)
            result[each.data->spec.client] = ProcessId(*xcb_res_client_id_value_value(each.data));
    }
    return result;
}

struct TaskWindow {
    xcb_window_t window;
    X11WindowNames names;
    std::vector<xcb_atom_t> claimedProcess;
};

/// Those of the windows that a task bar shows.
std::vector<TaskWindow> taskWindows(X11Session &session, const std::vector<xcb_window_t> &listed) {
    struct Question {
        xcb_window_t window;
        xcb_get_property_cookie_t windowClass, gtkApplicationId, types, states, process;
    };
    std::vector<Question> questions;
    questions.reserve(listed.size());
    for (const xcb_window_t window : listed)
        questions.push_back({window, ask(session, window, "WM_CLASS"),
                             ask(session, window, "_GTK_APPLICATION_ID"),
                             ask(session, window, "_NET_WM_WINDOW_TYPE"),
                             ask(session, window, "_NET_WM_STATE"), ask(session, window, "_NET_WM_PID")});
    std::vector<TaskWindow> result;
    for (const Question &question : questions) {
        const auto windowClass = answer(session, question.windowClass);
        const auto gtkApplicationId = answer(session, question.gtkApplicationId);
        const auto types = values(answer(session, question.types));
        const auto states = values(answer(session, question.states));
        const auto process = values(answer(session, question.process));
        const bool isTask = !contains(types, session.atom("_NET_WM_WINDOW_TYPE_DESKTOP")) &&
                            !contains(types, session.atom("_NET_WM_WINDOW_TYPE_DOCK")) &&
                            !contains(states, session.atom("_NET_WM_STATE_SKIP_TASKBAR"));
        if (isTask)
            result.push_back({question.window, names(bytes(windowClass), bytes(gtkApplicationId)), process});
    }
    return result;
}

}  // namespace

X11WindowNames windowNames(X11Session &session, xcb_window_t window) {
    const auto windowClass = ask(session, window, "WM_CLASS");
    const auto gtkApplicationId = ask(session, window, "_GTK_APPLICATION_ID");
    const auto classReply = answer(session, windowClass);
    return names(bytes(classReply), bytes(answer(session, gtkApplicationId)));
}

std::vector<X11Client> x11Clients(X11Session &session) {
    const std::uint32_t withinClient = xcb_get_setup(session.connection())->resource_id_mask;
    // Both at once: this is asked every other second, and each wait for the server wakes a processor up.
    const auto askedProcesses = askProcesses(session);
    const auto askedWindows = session.askProperty(session.root(), session.atom("_NET_CLIENT_LIST"));
    const auto connected = processes(session, askedProcesses);
    std::vector<X11Client> result;
    const auto client = [&result](ProcessId process) -> X11Client & {
        const auto known = std::find_if(result.begin(), result.end(),
                                        [process](const X11Client &each) { return each.process == process; });
        return known != result.end() ? *known : result.emplace_back(X11Client{process, {}, {}});
    };
    for (const auto &entry : connected)
        client(entry.second);
    for (const TaskWindow &task : taskWindows(session, session.values32(askedWindows))) {
        const auto owner = connected.find(task.window & ~withinClient);
        if (owner == connected.end() && (!connected.empty() || task.claimedProcess.empty()))
            continue;  // of another computer, or gone
        X11Client &program =
            client(owner != connected.end() ? owner->second : ProcessId(task.claimedProcess.front()));
        if (program.windows.empty())
            program.names = task.names;
        program.windows.push_back(task.window);
    }
    return result;
}

}  // namespace pimloft
