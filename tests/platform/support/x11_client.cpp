// SPDX-License-Identifier: MIT
#include "platform/support/x11_client.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace pimloft::test {

namespace {

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

}  // namespace

X11Client::X11Client() : connection_(xcb_connect(nullptr, nullptr)) {
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
}

X11Client::~X11Client() {
    xcb_disconnect(connection_);
}

xcb_atom_t X11Client::atom(const char *name) {
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_, xcb_intern_atom(connection_, false, std::uint16_t(std::strlen(name)), name), nullptr));
    return reply->atom;
}

xcb_window_t X11Client::open(const Options &options) {
    const xcb_window_t window = xcb_generate_id(connection_);
    open(options, window);
    return window;
}

void X11Client::open(const Options &options, xcb_window_t window) {
    const QRect &rect = options.client;
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, root_, std::int16_t(rect.x()),
                      std::int16_t(rect.y()), std::uint16_t(rect.width()), std::uint16_t(rect.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    // WM_NORMAL_HINTS: flags, four obsolete values, minimum, maximum, increment, aspects, base, gravity.
    std::array<std::uint32_t, 18> hints{};
    hints[0] = 1 | 4;  // the user's position, the program's too
    if (!options.minimum.isEmpty()) {
        hints[0] |= 1 << 4;
        hints[5] = std::uint32_t(options.minimum.width());
        hints[6] = std::uint32_t(options.minimum.height());
    }
    if (options.staticGravity) {
        hints[0] |= 1 << 9;
        hints[17] = XCB_GRAVITY_STATIC;
    }
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, hints.size(), hints.data());
    // Takes the keyboard when the window manager gives it.
    const std::array<std::uint32_t, 9> input{1, 1};
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32,
                        input.size(), input.data());
    if (!options.shadow.isNull()) {
        const QMargins &shadow = options.shadow;
        setCardinals(window, "_GTK_FRAME_EXTENTS",
                     {std::uint32_t(shadow.left()), std::uint32_t(shadow.right()),
                      std::uint32_t(shadow.top()), std::uint32_t(shadow.bottom())});
        const std::array<std::uint32_t, 5> undecorated{2, 0, 0, 0, 0};
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom("_MOTIF_WM_HINTS"),
                            atom("_MOTIF_WM_HINTS"), 32, undecorated.size(), undecorated.data());
    }
    if (options.type) {
        const xcb_atom_t type = atom(options.type);
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_WINDOW_TYPE"),
                            XCB_ATOM_ATOM, 32, 1, &type);
    }
    if (!options.strutPartial.empty())
        setCardinals(window, "_NET_WM_STRUT_PARTIAL", options.strutPartial);
    if (!options.strut.empty())
        setCardinals(window, "_NET_WM_STRUT", options.strut);
    xcb_map_window(connection_, window);
    xcb_flush(connection_);
}

void X11Client::close(xcb_window_t window) {
    xcb_destroy_window(connection_, window);
    xcb_flush(connection_);
}

void X11Client::setCardinals(xcb_window_t window, const char *name,
                             const std::vector<std::uint32_t> &values) {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(name), XCB_ATOM_CARDINAL, 32,
                        std::uint32_t(values.size()), values.data());
    xcb_flush(connection_);
}

void X11Client::deleteProperty(xcb_window_t window, const char *name) {
    xcb_delete_property(connection_, window, atom(name));
    xcb_flush(connection_);
}

void X11Client::configure(xcb_window_t window, const QRect &client) {
    const std::array<std::uint32_t, 4> values{std::uint32_t(client.x()), std::uint32_t(client.y()),
                                              std::uint32_t(client.width()), std::uint32_t(client.height())};
    xcb_configure_window(connection_, window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    xcb_flush(connection_);
}

void X11Client::send(xcb_window_t window, const char *type, const std::array<std::uint32_t, 5> &data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(type);
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(connection_, false, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(connection_);
}

void X11Client::activate(xcb_window_t window) {
    send(window, "_NET_ACTIVE_WINDOW", {2, XCB_CURRENT_TIME, 0, 0, 0});
}

void X11Client::iconify(xcb_window_t window) {
    constexpr std::uint32_t iconic = 3;
    send(window, "WM_CHANGE_STATE", {iconic, 0, 0, 0, 0});
}

void X11Client::changeState(xcb_window_t window, Change change, std::initializer_list<const char *> states) {
    std::array<std::uint32_t, 5> data{std::uint32_t(change), 0, 0, 2, 0};
    std::transform(states.begin(), states.end(), data.begin() + 1,
                   [this](const char *name) { return atom(name); });
    send(window, "_NET_WM_STATE", data);
}

std::vector<std::uint32_t> X11Client::property(xcb_window_t window, const char *name) {
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection_,
        xcb_get_property(connection_, false, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 4096),
        nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto *values = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

std::vector<xcb_window_t> X11Client::managed() {
    return property(root_, "_NET_CLIENT_LIST");
}

bool X11Client::isManaged(xcb_window_t window) {
    const auto all = managed();
    return std::find(all.begin(), all.end(), window) != all.end();
}

bool X11Client::isActive(xcb_window_t window) {
    const auto active = property(root_, "_NET_ACTIVE_WINDOW");
    return !active.empty() && active.front() == window;
}

bool X11Client::hasState(xcb_window_t window, const char *state) {
    const auto states = property(window, "_NET_WM_STATE");
    return std::find(states.begin(), states.end(), atom(state)) != states.end();
}

xcb_window_t X11Client::find(const std::string &title) {
    for (const xcb_window_t window : managed()) {
        const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            connection_,
            xcb_get_property(connection_, false, window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, 64),
            nullptr));
        if (reply && reply->value_len >= title.size() &&
            std::memcmp(xcb_get_property_value(reply.get()), title.data(), title.size()) == 0)
            return window;
    }
    return XCB_NONE;
}

QRect X11Client::clientRect(xcb_window_t window) {
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
    const Reply<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(
        connection_, xcb_translate_coordinates(connection_, window, root_, 0, 0), nullptr));
    return size && origin ? QRect(origin->dst_x, origin->dst_y, size->width, size->height) : QRect();
}

QRect X11Client::outermostFrame(xcb_window_t window) {
    for (;;) {
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr));
        if (!tree)
            return {};
        if (tree->parent == root_)
            return clientRect(window);
        window = tree->parent;
    }
}

QRect X11Client::visibleFrame(xcb_window_t window) {
    const auto shadow = property(window, "_GTK_FRAME_EXTENTS");
    const QRect outermost = outermostFrame(window);
    if (shadow.size() != 4)
        return outermost;
    return outermost.marginsRemoved(QMargins(int(shadow[0]), int(shadow[2]), int(shadow[1]), int(shadow[3])));
}

std::string text(const QRect &rect) {
    return QStringLiteral("%1,%2 %3 x %4")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height())
        .toStdString();
}

}  // namespace pimloft::test
