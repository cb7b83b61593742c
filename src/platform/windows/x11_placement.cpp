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
constexpr auto longestLeaving = 300ms;
constexpr auto longestSilence = 60ms;
constexpr auto watchTime = 250ms;
constexpr int mostRequests = 5;
constexpr int mostCorrections = 1;

constexpr std::uint32_t northWestGravity = 1;
constexpr std::uint32_t staticGravity = 10;

/// The states that keep a window from being placed, in the order in which they are left: fullscreen covers
/// the others, and each of the maximised two alone would restore one axis only.
constexpr std::array<std::array<const char *, 2>, 3> stateNames = {{
    {"_NET_WM_STATE_FULLSCREEN", nullptr},
    {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"},
    {"_NET_WM_STATE_SHADED", nullptr},
}};

/// The properties whose change tells that the window manager is at work on the window. Others may change all
/// the time, as a terminal's title does.
constexpr std::array framePropertyNames = {"_NET_WM_STATE", "_NET_FRAME_EXTENTS", "_GTK_FRAME_EXTENTS",
                                           "WM_STATE"};

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
        connect(timer, &QTimer::timeout, this, &X11Placement::proceed);
    }
    session_.select(window_, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
    events_ = session_.subscribe([this](const xcb_generic_event_t &event) { handle(event); });
}

X11Placement::~X11Placement() = default;

void X11Placement::moveTo(const QRect &frame) {
    target_ = frame;
    requests_ = 0;
    corrections_ = 0;
    answer_.reset();
    // Where the window is already leaving its state, the request that follows asks for the new frame.
    if (phase_ != Phase::leaving && phase_ != Phase::calming)
        leaveStates();
}

void X11Placement::handle(const xcb_generic_event_t &event) {
    switch (X11Session::type(event)) {
    case XCB_CONFIGURE_NOTIFY:
        if (reinterpret_cast<const xcb_configure_notify_event_t &>(event).window == window_)
            handleActivity();
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto &notice = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        const bool isOfFrame =
            std::any_of(framePropertyNames.begin(), framePropertyNames.end(),
                        [&](const char *name) { return notice.atom == session_.atom(name); });
        if (notice.window == window_ && isOfFrame)
            handleActivity();
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window == window_)
            finish();
        break;
    }
}

void X11Placement::handleActivity() {
    switch (phase_) {
    case Phase::leaving:
        if (heldGroups().empty()) {
            phase_ = Phase::calming;
            quiet_.start(stillness);
            limit_.start(longestUnrest);
        }
        break;
    case Phase::moving:
        // The first answer; now it is stillness that counts.
        if (!quiet_.isActive())
            limit_.start(longestUnrest);
        quiet_.start(stillness);
        break;
    case Phase::calming:
    case Phase::watching:
        quiet_.start(stillness);
        break;
    case Phase::ended:
        break;
    }
}

void X11Placement::proceed() {
    const bool isPhaseOver = !limit_.isActive();
    quiet_.stop();
    switch (phase_) {
    case Phase::leaving:
    case Phase::calming:
        request();
        break;
    case Phase::moving:
        judge();
        break;
    case Phase::watching:
        review();
        if (phase_ == Phase::watching && isPhaseOver)
            finish();
        break;
    case Phase::ended:
        break;
    }
}

void X11Placement::leaveStates() {
    const auto groups = heldGroups();
    if (groups.empty()) {
        request();
        return;
    }
    constexpr std::uint32_t remove = 0;
    constexpr std::uint32_t fromPager = 2;
    for (const StateGroup &group : groups)
        session_.sendToRoot(window_, session_.atom("_NET_WM_STATE"),
                            {remove, group[0], group[1], fromPager, 0});
    phase_ = Phase::leaving;
    quiet_.stop();
    limit_.start(longestLeaving);
}

void X11Placement::request() {
    const auto geometry = readGeometry(session_, window_);
    if (!geometry) {
        finish();
        return;
    }
    ++requests_;
    phase_ = Phase::moving;
    session_.sendToRoot(window_, session_.atom("_NET_MOVERESIZE_WINDOW"),
                        moveResizeMessage(target_, geometry->extents, hasStaticGravity()));
    limit_.start(longestSilence);
    // A window that stands there already may be told nothing.
    if (geometry->frame() == target_)
        quiet_.start(stillness);
    else
        quiet_.stop();
}

void X11Placement::judge() {
    const auto geometry = readGeometry(session_, window_);
    if (!geometry) {
        finish();
        return;
    }
    const QRect frame = geometry->frame();
    const bool isThere = frame == target_ && heldGroups().empty();
    if (isThere || answer_ == frame || requests_ == mostRequests) {
        settle(frame);
        return;
    }
    answer_ = frame;
    leaveStates();
}

void X11Placement::settle(const QRect &frame) {
    settled_ = frame;
    phase_ = Phase::watching;
    quiet_.stop();
    limit_.start(watchTime);
}

void X11Placement::review() {
    const auto geometry = readGeometry(session_, window_);
    if (!geometry) {
        finish();
        return;
    }
    if (geometry->frame() == settled_ && heldGroups().empty())
        return;
    // Whoever holds a button is moving the window by hand.
    if (corrections_ == mostCorrections || isButtonDown()) {
        finish();
        return;
    }
    ++corrections_;
    requests_ = 0;
    answer_.reset();
    leaveStates();
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
