// SPDX-License-Identifier: MIT
#include "platform/displays/x11_displays.h"

#include "platform/x11/x11_active_window.h"
#include "platform/x11/x11_window_geometry.h"
#include "platform/x11/x11_window_info.h"

#include <xcb/randr.h>

#include <algorithm>

namespace pimloft {

namespace {

/// Whether nothing about the displays changed, their places and sizes included.
bool isSame(const std::vector<Display> &before, const std::vector<Display> &after) {
    return std::equal(before.begin(), before.end(), after.begin(), after.end(),
                      [](const Display &a, const Display &b) {
                          return a.id == b.id && a.frame == b.frame && a.visibleFrame == b.visibleFrame;
                      });
}

/// RandR's monitors came with 1.5; asking tells the server that this client knows them.
bool hasMonitors(X11Session &session) {
    if (!session.hasExtension(&xcb_randr_id))
        return false;
    const XcbReply<xcb_randr_query_version_reply_t> version(xcb_randr_query_version_reply(
        session.connection(), xcb_randr_query_version(session.connection(), 1, 5), nullptr));
    return version && (version->major_version > 1 || version->minor_version >= 5);
}

}  // namespace

X11Displays::X11Displays(X11Session &session, double scale) : session_(session), struts_(session) {
    space_.scale = scale;
    if (hasMonitors(session_)) {
        randrEvents_ = xcb_get_extension_data(session_.connection(), &xcb_randr_id)->first_event;
        xcb_randr_select_input(session_.connection(), session_.root(),
                               XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                                   XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    }
    session_.select(session_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    events_ = session_.subscribe([this](const xcb_generic_event_t &event) { handle(event); });
    update();
    announced_ = displays_;
}

X11Displays::~X11Displays() = default;

const std::vector<Display> &X11Displays::displays() {
    update();
    return displays_;
}

std::optional<Display> X11Displays::mainDisplay() {
    update();
    if (displays_.empty())
        return std::nullopt;
    const xcb_window_t active = activeWindow(session_);
    if (active == XCB_NONE || windowType(session_, active) != X11WindowType::application)
        return displays_.front();
    const auto geometry = readGeometry(session_, active);
    if (!geometry)
        return displays_.front();
    const QPointF center = space_.toDesktop(geometry->frame()).center();
    for (const Display &display : displays_)
        if (display.frame.contains(center))
            return display;
    return displays_.front();
}

PointSpace X11Displays::pointSpace() {
    update();
    return space_;
}

void X11Displays::handle(const xcb_generic_event_t &event) {
    if (isMonitorNotice(event) || struts_.isChangedBy(event))
        invalidate();
}

bool X11Displays::isMonitorNotice(const xcb_generic_event_t &event) {
    const int type = X11Session::type(event);
    // A monitor that the user divides by hand is told by nothing else than the root's own notice.
    if (type == XCB_CONFIGURE_NOTIFY)
        return reinterpret_cast<const xcb_configure_notify_event_t &>(event).window == session_.root();
    return randrEvents_ >= 0 &&
           (type == randrEvents_ + XCB_RANDR_SCREEN_CHANGE_NOTIFY || type == randrEvents_ + XCB_RANDR_NOTIFY);
}

void X11Displays::invalidate() {
    isCurrent_ = false;
    if (isAnnouncing_)
        return;
    isAnnouncing_ = true;
    QMetaObject::invokeMethod(this, &X11Displays::announce, Qt::QueuedConnection);
}

void X11Displays::announce() {
    isAnnouncing_ = false;
    update();
    if (isSame(announced_, displays_))
        return;
    announced_ = displays_;
    if (onChanged)
        onChanged();
}

void X11Displays::update() {
    if (isCurrent_)
        return;
    isCurrent_ = true;
    const QSize root = rootSize();
    if (root.isEmpty())
        return;
    const std::vector<Monitor> monitors = readMonitors(root);
    const std::vector<Strut> struts = struts_.read(root);
    displays_.clear();
    if (!monitors.empty())
        space_.primary = monitors.front().frame;
    for (const Monitor &monitor : monitors)
        displays_.push_back({monitor.id, space_.toDesktop(monitor.frame),
                             space_.toDesktop(workArea(monitor.frame, struts, root))});
}

std::vector<Monitor> X11Displays::readMonitors(QSize root) {
    if (randrEvents_ < 0)
        return {{DisplayId(session_.root()), QRect(QPoint(0, 0), root), true}};
    const auto cookie = xcb_randr_get_monitors(session_.connection(), session_.root(), true);
    const XcbReply<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(session_.connection(), cookie, nullptr));
    if (!reply)
        return {};
    std::vector<Monitor> monitors;
    for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem;
         xcb_randr_monitor_info_next(&each))
        monitors.push_back({DisplayId(each.data->name),
                            QRect(each.data->x, each.data->y, each.data->width, each.data->height),
                            each.data->primary != 0});
    return inDisplayOrder(std::move(monitors));
}

QSize X11Displays::rootSize() {
    const XcbReply<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(
        session_.connection(), xcb_get_geometry(session_.connection(), session_.root()), nullptr));
    return reply ? QSize(reply->width, reply->height) : QSize();
}

}  // namespace pimloft
