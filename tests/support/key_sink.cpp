// SPDX-License-Identifier: MIT
#include "support/key_sink.h"

#include "platform/x11/key_positions.h"
#include "support/desktop_session.h"

#include <algorithm>

namespace pimloft::test {

namespace {

QString positionName(xcb_keycode_t key) {
    const auto found = std::find_if(keyPositions.begin(), keyPositions.end(),
                                    [key](const KeyPosition &each) { return each.kernel + 8 == key; });
    return found == keyPositions.end() ? QString::number(key) : QString::fromLatin1(found->name);
}

bool isModifier(const QString &name) {
    static const char *const names[] = {"LWIN", "RWIN", "LCTL", "RCTL", "LFSH",
                                        "RTSH", "LALT", "RALT", "CAPS", "NMLK"};
    return std::any_of(std::begin(names), std::end(names),
                       [&](const char *each) { return name == QLatin1String(each); });
}

}  // namespace

KeySink::KeySink(QRect frame, const QByteArray &windowClass)
    : window_(xcb_generate_id(session_.connection())),
      events_(session_.subscribe([this](const xcb_generic_event_t &event) { handle(event); })) {
    const std::uint32_t values[] = {0x808080, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                                  XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(session_.connection(), XCB_COPY_FROM_PARENT, window_, session_.root(),
                      std::int16_t(frame.x()), std::int16_t(frame.y()), std::uint16_t(frame.width()),
                      std::uint16_t(frame.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    // A position that the user asked for: the window manager does not choose one.
    const std::uint32_t hints[18] = {1};
    xcb_change_property(session_.connection(), XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, 18, hints);
    if (!windowClass.isEmpty()) {
        const QByteArray names = windowClass + '\0' + windowClass + '\0';
        xcb_change_property(session_.connection(), XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING, 8, std::uint32_t(names.size()), names.constData());
    }
    xcb_map_window(session_.connection(), window_);
    session_.roundTrip();
    activate();
}

KeySink::~KeySink() {
    xcb_destroy_window(session_.connection(), window_);
    session_.roundTrip();
}

void KeySink::activate() {
    const bool managed =
        !session_.property32(session_.root(), session_.atom("_NET_SUPPORTING_WM_CHECK")).empty();
    if (!managed)
        xcb_set_input_focus(session_.connection(), XCB_INPUT_FOCUS_PARENT, window_, XCB_CURRENT_TIME);
    session_.roundTrip();
    constexpr std::uint32_t fromUser = 2;
    if (!waitUntil([&] {
            if (managed && !isActive())
                session_.sendToRoot(window_, session_.atom("_NET_ACTIVE_WINDOW"), {fromUser, 0, 0, 0, 0});
            return hasFocus_ && (!managed || isActive());
        }))
        qFatal("a window that does not get the keyboard");
}

bool KeySink::isActive() {
    const auto active = session_.property32(session_.root(), session_.atom("_NET_ACTIVE_WINDOW"));
    return !active.empty() && active.front() == window_;
}

QString KeySink::typed() {
    return std::exchange(typed_, {}).join(QStringLiteral(", "));
}

QString KeySink::keys() {
    return std::exchange(keys_, {}).join(QLatin1Char(' '));
}

void KeySink::handle(const xcb_generic_event_t &event) {
    const int type = X11Session::type(event);
    if (type == XCB_BUTTON_PRESS)
        ++clicks_;
    // Grabs come and go; what counts is where the focus is set to.
    if (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT) {
        const auto &focus = reinterpret_cast<const xcb_focus_in_event_t &>(event);
        if (focus.mode == XCB_NOTIFY_MODE_NORMAL || focus.mode == XCB_NOTIFY_MODE_WHILE_GRABBED)
            hasFocus_ = type == XCB_FOCUS_IN;
    }
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return;
    const auto &key = reinterpret_cast<const xcb_key_press_event_t &>(event);
    const QString name = positionName(key.detail);
    keys_ << (type == XCB_KEY_PRESS ? QLatin1Char('+') : QLatin1Char('-')) + name;
    if (type == XCB_KEY_RELEASE || isModifier(name))
        return;
    QString chord;
    for (const auto &[mask, word] :
         {std::pair(XCB_MOD_MASK_LOCK, "Caps "), std::pair(XCB_MOD_MASK_CONTROL, "Control "),
          std::pair(XCB_MOD_MASK_1, "Alt "), std::pair(XCB_MOD_MASK_4, "Super "),
          std::pair(XCB_MOD_MASK_SHIFT, "Shift ")})
        if (key.state & mask)
            chord += QLatin1String(word);
    typed_ << chord + name;
}

}  // namespace pimloft::test
