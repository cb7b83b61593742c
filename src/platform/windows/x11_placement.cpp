// SPDX-License-Identifier: MIT
#include "platform/windows/x11_placement.h"

#include <algorithm>
#include <chrono>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

/// Openbox drops a state's atoms up to 12 ms before it restores the frame.
constexpr auto stillness = 20ms;
/// For a window that never keeps still.
constexpr auto longestUnrest = 150ms;
/// After a request that changes nothing.
constexpr auto longestSilence = 60ms;
constexpr auto watchTime = 250ms;
/// What a program on a busy machine needs to draw itself anew after it has left a state.
constexpr auto restTime = 2s;
/// Where nothing happened at all: the window manager may be held up, and has the requests still before it.
constexpr auto placementPatience = 2s;
constexpr int mostRequests = 6;
constexpr int mostCorrections = 2;

constexpr std::uint32_t northWestGravity = 1;
constexpr std::uint32_t staticGravity = 10;

/// The states that keep a window from being placed, in the order in which they are left: fullscreen covers
/// the others, and each of the maximised two alone would restore one axis only.
constexpr std::array<std::array<const char *, 2>, 3> stateNames = {{
    {"_NET_WM_STATE_FULLSCREEN", nullptr},
    {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"},
    {"_NET_WM_STATE_SHADED", nullptr},
}};

/// The properties whose change tells that something is at work on the window. Others may change all the time,
/// as a terminal's title does.
constexpr std::array stateProperties = {"_NET_WM_STATE", "WM_STATE"};
constexpr std::array extentProperties = {"_NET_FRAME_EXTENTS", "_GTK_FRAME_EXTENTS"};

}  // namespace

std::array<std::uint32_t, 5> moveResizeMessage(const QRect &frame, const QMargins &extents, bool isStatic) {
    constexpr std::uint32_t allFourValues = 0xf << 8;
    constexpr std::uint32_t fromPager = 2 << 12;
    const QRect client = frame.marginsRemoved(extents);
    // Where the program draws the shadow there is no frame around the client, and its own corner counts.
    const bool isClientCorner = isStatic || extents.left() < 0 || extents.top() < 0;
    const QPoint corner = isClientCorner ? client.topLeft() : frame.topLeft();
    return {(isStatic ? staticGravity : northWestGravity) | allFourValues | fromPager,
            std::uint32_t(corner.x()), std::uint32_t(corner.y()), std::uint32_t(std::max(1, client.width())),
            std::uint32_t(std::max(1, client.height()))};
}

X11Placement::X11Placement(X11Session &session, xcb_window_t window) : session_(session), window_(window) {
    for (QTimer *timer : {&quiet_, &limit_}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
        connect(timer, &QTimer::timeout, this, &X11Placement::handleTimeout);
    }
    session_.select(window_, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
    events_ = session_.subscribe([this](const xcb_generic_event_t &event) { handle(event); });
}

X11Placement::~X11Placement() = default;

void X11Placement::moveTo(const QRect &frame) {
    target_ = frame;
    phase_ = Phase::moving;
    corrections_ = 0;
    if (const auto geometry = readGeometry(session_, window_))
        begin(*geometry);
    else
        finish();
}

void X11Placement::handle(const xcb_generic_event_t &event) {
    if (X11Session::goneWindow(event) == window_) {
        finish();
    } else if (X11Session::type(event) == XCB_CONFIGURE_NOTIFY) {
        if (reinterpret_cast<const xcb_configure_notify_event_t &>(event).window == window_)
            handleActivity();
    } else if (X11Session::type(event) == XCB_PROPERTY_NOTIFY) {
        const auto &notice = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        const bool isExtent = isAmong(extentProperties, notice.atom);
        if (notice.window != window_ || !(isExtent || isAmong(stateProperties, notice.atom)))
            return;
        handleActivity();
        if (isExtent && phase_ == Phase::moving)
            refit();
        else if (isExtent && phase_ == Phase::resting)
            fitToLateExtents();
    }
}

bool X11Placement::isAmong(std::span<const char *const> names, xcb_atom_t property) {
    return std::any_of(names.begin(), names.end(),
                       [&](const char *name) { return property == session_.atom(name); });
}

void X11Placement::handleActivity() {
    if (phase_ == Phase::ended || phase_ == Phase::resting)
        return;
    // After the first answer it is stillness that counts, and not for ever.
    if (phase_ == Phase::moving && !quiet_.isActive())
        limit_.start(longestUnrest);
    isAnswered_ = true;
    quiet_.start(stillness);
}

void X11Placement::refit() {
    // The requests so far were made for other decorations: their frame is known to be off.
    if (requests_ == mostRequests)
        return;
    const auto geometry = readGeometry(session_, window_);
    if (geometry && geometry->extents != extents_ && geometry->frame() != target_)
        request(*geometry);
}

void X11Placement::rest(const X11WindowGeometry &now) {
    phase_ = Phase::resting;
    resting_ = now.client;
    quiet_.stop();
    limit_.start(restTime);
}

void X11Placement::fitToLateExtents() {
    const auto geometry = readGeometry(session_, window_);
    // Elsewhere it is by somebody's wish.
    if (!geometry || geometry->client != resting_ || !heldGroups().empty())
        finish();
    else if (geometry->frame() != target_)
        correct(*geometry);
}

void X11Placement::correct(const X11WindowGeometry &now) {
    // A program that insists has its way in the end, and so has whoever moves the window by hand.
    if (corrections_ == mostCorrections || isButtonDown()) {
        finish();
        return;
    }
    ++corrections_;
    begin(now);
}

void X11Placement::handleTimeout() {
    const bool isPhaseOver = !limit_.isActive();
    quiet_.stop();
    const auto geometry = readGeometry(session_, window_);
    if (!geometry) {
        finish();
        return;
    }
    if (phase_ == Phase::moving) {
        judge(*geometry);
    } else if (phase_ == Phase::watching) {
        review(*geometry);
        if (isPhaseOver && phase_ == Phase::watching)
            rest(*geometry);
    } else {
        finish();
    }
}

void X11Placement::begin(const X11WindowGeometry &now) {
    requests_ = 0;
    answer_.reset();
    isAnswered_ = false;
    request(now);
}

void X11Placement::request(const X11WindowGeometry &now) {
    constexpr std::uint32_t remove = 0;
    constexpr std::uint32_t fromPager = 2;
    for (const StateGroup &group : heldGroups())
        session_.sendToRoot(window_, session_.atom("_NET_WM_STATE"),
                            {remove, group[0], group[1], fromPager, 0});
    // The window manager takes these in order. Where leaving the state changed the decorations, this frame is
    // off by them, and the next request is right.
    session_.sendToRoot(window_, session_.atom("_NET_MOVERESIZE_WINDOW"),
                        moveResizeMessage(target_, now.extents, hasStaticGravity()));
    extents_ = now.extents;
    ++requests_;
    phase_ = Phase::moving;
    limit_.start(longestSilence);
    // A window that stands there already may be told nothing.
    if (now.frame() == target_)
        quiet_.start(stillness);
    else
        quiet_.stop();
}

void X11Placement::judge(const X11WindowGeometry &now) {
    const QRect frame = now.frame();
    const bool isThere = frame == target_ && heldGroups().empty();
    // Whoever holds a button is moving the window by hand.
    if (isThere || answer_ == frame || requests_ == mostRequests || isButtonDown()) {
        settle(frame);
        return;
    }
    answer_ = frame;
    request(now);
}

void X11Placement::settle(const QRect &frame) {
    // Where it was still changing, it is looked at once more when the watch is over.
    const bool isStill = answer_ == frame || requests_ < mostRequests;
    settled_ = isStill ? frame : target_;
    phase_ = Phase::watching;
    limit_.start(isAnswered_ || frame == target_ ? watchTime : placementPatience);
}

void X11Placement::review(const X11WindowGeometry &now) {
    const QRect frame = now.frame();
    if ((frame == settled_ || frame == target_) && heldGroups().empty())
        return;
    correct(now);
}

void X11Placement::finish() {
    if (phase_ == Phase::ended)
        return;
    phase_ = Phase::ended;
    quiet_.stop();
    limit_.stop();
    emit ended();
}

std::vector<X11Placement::StateGroup> X11Placement::heldGroups() {
    const auto states = session_.property32(window_, session_.atom("_NET_WM_STATE"));
    std::vector<StateGroup> held;
    for (const auto &names : stateNames) {
        const StateGroup group = {session_.atom(names[0]),
                                  names[1] ? session_.atom(names[1]) : xcb_atom_t(XCB_ATOM_NONE)};
        if (std::find_first_of(states.begin(), states.end(), group.begin(),
                               names[1] ? group.end() : group.begin() + 1) != states.end())
            held.push_back(group);
    }
    return held;
}

bool X11Placement::hasStaticGravity() {
    constexpr std::uint32_t gravityGiven = 1 << 9;
    constexpr std::size_t gravityField = 17;
    const auto hints = session_.property32(window_, XCB_ATOM_WM_NORMAL_HINTS);
    return hints.size() > gravityField && (hints[0] & gravityGiven) && hints[gravityField] == staticGravity;
}

bool X11Placement::isButtonDown() {
    const XcbReply<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
        session_.connection(), xcb_query_pointer(session_.connection(), session_.root()), nullptr));
    constexpr int anyButton = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    return pointer && (pointer->mask & anyButton);
}

}  // namespace pimloft
