// SPDX-License-Identifier: MIT
#include "desktop/support/x_desktop.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

namespace pimloft::test {

namespace {

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T>
std::unique_ptr<T, Free> owned(T *reply) {
    return std::unique_ptr<T, Free>(reply);
}

constexpr int evdevOffset = 8;

}  // namespace

XDesktop::XDesktop(const QString &display)
    : connection_(xcb_connect(display.toLatin1().constData(), nullptr)),
      screen_(xcb_setup_roots_iterator(xcb_get_setup(connection_)).data) {
    if (xcb_connection_has_error(connection_))
        qFatal("no display %s", qPrintable(display));
}

XDesktop::~XDesktop() {
    xcb_disconnect(connection_);
}

QRect XDesktop::screen() const {
    const auto geometry =
        owned(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, screen_->root), nullptr));
    return geometry ? QRect(0, 0, geometry->width, geometry->height) : QRect();
}

xcb_atom_t XDesktop::atom(const QByteArray &name) const {
    const auto cookie = xcb_intern_atom(connection_, false, std::uint16_t(name.size()), name.constData());
    const auto reply = owned(xcb_intern_atom_reply(connection_, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

XDesktop::Property XDesktop::property(xcb_window_t window, const char *name) const {
    const auto cookie =
        xcb_get_property(connection_, false, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 4096);
    const auto reply = owned(xcb_get_property_reply(connection_, cookie, nullptr));
    if (!reply)
        return {};
    const auto *bytes = static_cast<const std::uint8_t *>(xcb_get_property_value(reply.get()));
    return {reply->type, {bytes, bytes + xcb_get_property_value_length(reply.get())}};
}

std::vector<std::uint32_t> XDesktop::Property::values() const {
    std::vector<std::uint32_t> result(bytes.size() / sizeof(std::uint32_t));
    std::memcpy(result.data(), bytes.data(), result.size() * sizeof(std::uint32_t));
    return result;
}

std::vector<xcb_window_t> XDesktop::windows() const {
    return property(screen_->root, "_NET_CLIENT_LIST").values();
}

bool XDesktop::isOf(xcb_window_t window, const QString &windowClass) const {
    const auto name = property(window, "WM_CLASS").bytes;
    const QByteArray bytes(reinterpret_cast<const char *>(name.data()), qsizetype(name.size()));
    return bytes.split('\0').contains(windowClass.toUtf8());
}

std::vector<xcb_window_t> XDesktop::windowsOf(const QString &windowClass) const {
    std::vector<xcb_window_t> found = windows();
    std::erase_if(found, [&](xcb_window_t each) { return !isOf(each, windowClass); });
    return found;
}

std::optional<xcb_window_t> XDesktop::window(const QString &wanted) const {
    for (const xcb_window_t each : windows())
        if (title(each) == wanted)
            return each;
    return std::nullopt;
}

QString XDesktop::title(xcb_window_t window) const {
    Property name = property(window, "_NET_WM_NAME");
    if (name.bytes.empty())
        name = property(window, "WM_NAME");
    return QString::fromUtf8(reinterpret_cast<const char *>(name.bytes.data()), qsizetype(name.bytes.size()));
}

QStringList XDesktop::states(xcb_window_t window) const {
    QStringList names;
    for (const std::uint32_t state : property(window, "_NET_WM_STATE").values()) {
        const auto reply =
            owned(xcb_get_atom_name_reply(connection_, xcb_get_atom_name(connection_, state), nullptr));
        if (reply)
            names << QString::fromLatin1(xcb_get_atom_name_name(reply.get()),
                                         xcb_get_atom_name_name_length(reply.get()))
                         .remove(QStringLiteral("_NET_WM_STATE_"));
    }
    return names;
}

xcb_window_t XDesktop::activeWindow() const {
    const auto values = property(screen_->root, "_NET_ACTIVE_WINDOW").values();
    return values.empty() ? xcb_window_t(XCB_NONE) : values.front();
}

std::vector<std::uint32_t> XDesktop::extents(xcb_window_t window, const char *name) const {
    auto values = property(window, name).values();
    values.resize(4);  // left, right, top, bottom
    return values;
}

QRect XDesktop::visibleFrame(xcb_window_t window) const {
    const auto geometry =
        owned(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
    const auto origin = owned(xcb_translate_coordinates_reply(
        connection_, xcb_translate_coordinates(connection_, window, screen_->root, 0, 0), nullptr));
    if (!geometry || !origin)
        return {};
    const QRect client(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
    const auto shadow = extents(window, "_GTK_FRAME_EXTENTS");
    if (std::any_of(shadow.begin(), shadow.end(), [](std::uint32_t side) { return side != 0; }))
        return client.adjusted(int(shadow[0]), int(shadow[2]), -int(shadow[1]), -int(shadow[3]));
    const auto border = extents(window, "_NET_FRAME_EXTENTS");
    return client.adjusted(-int(border[0]), -int(border[2]), int(border[1]), int(border[3]));
}

QSize XDesktop::sizeIncrement(xcb_window_t window) const {
    constexpr std::uint32_t hasIncrement = 1 << 6;
    const auto hints = property(window, "WM_NORMAL_HINTS").values();
    if (hints.size() < 11 || !(hints[0] & hasIncrement))
        return {1, 1};
    return {int(hints[9]), int(hints[10])};
}

QPoint XDesktop::titleBar(xcb_window_t window) const {
    const QRect frame = visibleFrame(window);
    // A title bar that the program draws itself counts as part of its content.
    constexpr int usualHeight = 30;
    const auto height = int(extents(window, "_NET_FRAME_EXTENTS")[2]);
    return {frame.center().x(), frame.top() + (height ? height : usualHeight) / 2};
}

void XDesktop::send(xcb_window_t window, const char *type, const std::vector<std::uint32_t> &data) {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(type);
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(connection_, false, screen_->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(connection_);
}

void XDesktop::activate(xcb_window_t window) {
    send(window, "_NET_ACTIVE_WINDOW", {2, XCB_CURRENT_TIME, XCB_NONE});
}

void XDesktop::close(xcb_window_t window) {
    send(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, 2});
}

void XDesktop::setState(xcb_window_t window, const char *state, bool on) {
    const QByteArray name = QByteArray("_NET_WM_STATE_") + state;
    // A maximised window is so in both directions.
    if (name.endsWith("MAXIMIZED"))
        send(window, "_NET_WM_STATE", {on, atom(name + "_VERT"), atom(name + "_HORZ"), 2});
    else
        send(window, "_NET_WM_STATE", {on, atom(name), 0, 2});
}

void XDesktop::place(xcb_window_t window, const QRect &frame) {
    constexpr std::uint32_t northWest = 1;
    constexpr std::uint32_t allFields = 0xF << 8;
    constexpr std::uint32_t fromPager = 2 << 12;
    const auto border = extents(window, "_NET_FRAME_EXTENTS");
    const auto shadow = extents(window, "_GTK_FRAME_EXTENTS");
    const bool own = std::any_of(shadow.begin(), shadow.end(), [](std::uint32_t side) { return side != 0; });
    const QRect target =
        own ? frame.adjusted(-int(shadow[0]), -int(shadow[2]), int(shadow[1]), int(shadow[3]))
            : QRect(frame.topLeft(),
                    frame.size() - QSize(int(border[0] + border[1]), int(border[2] + border[3])));
    send(window, "_NET_MOVERESIZE_WINDOW",
         {northWest | allFields | fromPager, std::uint32_t(target.x()), std::uint32_t(target.y()),
          std::uint32_t(target.width()), std::uint32_t(target.height())});
}

std::vector<QRect> XDesktop::unmanagedWindows(const QString &windowClass) const {
    std::vector<QRect> found;
    const auto tree =
        owned(xcb_query_tree_reply(connection_, xcb_query_tree(connection_, screen_->root), nullptr));
    if (!tree)
        return found;
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const auto attributes = owned(xcb_get_window_attributes_reply(
            connection_, xcb_get_window_attributes(connection_, children[i]), nullptr));
        if (!attributes || !attributes->override_redirect || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
            continue;
        if (isOf(children[i], windowClass))
            found.push_back(visibleFrame(children[i]));
    }
    return found;
}

bool XDesktop::isPointerFree() const {
    const auto cookie = xcb_grab_pointer(connection_, true, screen_->root, 0, XCB_GRAB_MODE_ASYNC,
                                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const auto reply = owned(xcb_grab_pointer_reply(connection_, cookie, nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
        return false;
    xcb_ungrab_pointer(connection_, XCB_CURRENT_TIME);
    xcb_flush(connection_);
    return true;
}

void XDesktop::holdKeyboard() {
    const auto cookie = xcb_grab_keyboard(connection_, true, screen_->root, XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const auto reply = owned(xcb_grab_keyboard_reply(connection_, cookie, nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
        qFatal("the keyboard is another program's");
}

void XDesktop::releaseKeyboard() {
    xcb_ungrab_keyboard(connection_, XCB_CURRENT_TIME);
    xcb_flush(connection_);
}

bool XDesktop::hasCompositor() const {
    const auto cookie = xcb_get_selection_owner(connection_, atom("_NET_WM_CM_S0"));
    const auto reply = owned(xcb_get_selection_owner_reply(connection_, cookie, nullptr));
    return reply && reply->owner != XCB_NONE;
}

bool XDesktop::grab(int key, std::uint16_t modifiers) const {
    const auto cookie =
        xcb_grab_key_checked(connection_, false, screen_->root, modifiers, xcb_keycode_t(key + evdevOffset),
                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    return !owned(xcb_request_check(connection_, cookie));
}

bool XDesktop::isKeyTaken(int key, std::uint16_t modifiers) const {
    // While the server is ours nobody else can ask for the combination and be refused.
    xcb_grab_server(connection_);
    const bool free = grab(key, modifiers);
    if (free)
        xcb_ungrab_key(connection_, xcb_keycode_t(key + evdevOffset), screen_->root, modifiers);
    xcb_ungrab_server(connection_);
    xcb_flush(connection_);
    return !free;
}

void XDesktop::takeKey(int key, std::uint16_t modifiers) {
    if (!grab(key, modifiers))
        qFatal("the key combination belongs to somebody already");
}

xcb_window_t XDesktop::openDock(Edge edge, int thickness, int from, int to) {
    const QRect all = screen();
    const QRect frame = edge == Edge::left    ? QRect(0, from, thickness, to - from)
                        : edge == Edge::right ? QRect(all.width() - thickness, from, thickness, to - from)
                        : edge == Edge::top   ? QRect(from, 0, to - from, thickness)
                                              : QRect(from, all.height() - thickness, to - from, thickness);
    const xcb_window_t window = xcb_generate_id(connection_);
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, screen_->root, std::int16_t(frame.x()),
                      std::int16_t(frame.y()), std::uint16_t(frame.width()), std::uint16_t(frame.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                      &screen_->white_pixel);
    const xcb_atom_t dock = atom("_NET_WM_WINDOW_TYPE_DOCK");
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_WINDOW_TYPE"),
                        XCB_ATOM_ATOM, 32, 1, &dock);
    // left, right, top, bottom; then start and end of each in the same order
    std::array<std::uint32_t, 12> strut = {};
    const auto side = std::size_t(edge);
    strut[side] = std::uint32_t(thickness);
    strut[4 + 2 * side] = std::uint32_t(from);
    strut[5 + 2 * side] = std::uint32_t(to - 1);
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_STRUT_PARTIAL"),
                        XCB_ATOM_CARDINAL, 32, strut.size(), strut.data());
    xcb_map_window(connection_, window);
    xcb_flush(connection_);
    return window;
}

QImage XDesktop::picture(const QRect &area) const {
    const auto cookie =
        xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, std::int16_t(area.x()),
                      std::int16_t(area.y()), std::uint16_t(area.width()), std::uint16_t(area.height()), ~0U);
    const auto reply = owned(xcb_get_image_reply(connection_, cookie, nullptr));
    if (!reply)
        qFatal("no picture of the display");
    return QImage(xcb_get_image_data(reply.get()), area.width(), area.height(), QImage::Format_RGB32).copy();
}

}  // namespace pimloft::test
