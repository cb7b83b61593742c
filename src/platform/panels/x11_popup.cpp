// SPDX-License-Identifier: MIT
#include "platform/panels/x11_popup.h"

#include "platform/panels/x11_panels.h"

#include <QEvent>
#include <QGuiApplication>

#include <xcb/shape.h>

namespace pimloft {

namespace {

/// Buttons as they are numbered on the device: a wheel turned outside, or a middle click, is no click away.
constexpr std::uint32_t leftButton = 1;
constexpr std::uint32_t rightButton = 3;

}  // namespace

X11Popup::X11Popup(X11Panels &panels, std::unique_ptr<QWindow> content)
    : X11Panel(panels, std::move(content), {}),
      presses_(panels.desktop_.input.watch([this](const X11RawInput::Event &event) { handlePress(event); })) {
    idle_.setSingleShot(true);
    idle_.setInterval(panels.idle_);
    idle_.callOnTimeout(this, [this] { dismiss(Dismissal::idle); });
    connect(&panels.desktop_.activeWindow, &X11ActiveWindow::changed, this, [this](xcb_window_t window) {
        if (window != XCB_NONE && window != activeWindow_)
            dismiss(Dismissal::otherWindowActivated);
    });
    connect(&*panels.screenLock_, &ScreenLock::locked, this, [this] { dismiss(Dismissal::screenLocks); });
    this->content().installEventFilter(this);
}

X11Popup::~X11Popup() {
    orderOut();
}

bool X11Popup::show(const QRectF &frame) {
    if (panels_.typing_ && panels_.typing_ != this)
        panels_.typing_->loseTyping(Dismissal::typingLost);
    ++shows_;
    dismissed_ = false;
    takesClicks_ = true;
    activeWindow_ = panels_.desktop_.activeWindow.current();
    applyShape();
    open(frame);
    if (!takeKeyboard()) {
        close();
        return false;
    }
    presses_->want(X11RawInput::buttonPress);
    // The click that opened it is no click away from it.
    shown_ = panels_.desktop_.input.now();
    idle_.start();
    return true;
}

bool X11Popup::takeKeyboard() {
    const KeySet pressedAsHotkeys = panels_.desktop_.hotkeys.held();
    // As long as the hotkey that opened the popup is held, its grab is in the way.
    panels_.desktop_.keyboard.endHotkeyGrab();
    qGuiApp->installNativeEventFilter(this);
    typing_ = content().setKeyboardGrabEnabled(true);
    grabbed_ = xcb_no_operation(connection()).sequence;
    // What is down now is let go in the events of this window; and those that come after the answer have a
    // higher number.
    hotkeys_ = pressedAsHotkeys & keysDown(connection());
    released_ = {};
    if (typing_)
        panels_.typing_ = this;
    else
        qGuiApp->removeNativeEventFilter(this);
    return typing_;
}

void X11Popup::releaseTyping() {
    if (!std::exchange(typing_, false))
        return;
    endWatches();
    takesClicks_ = false;
    applyShape();
    content().setKeyboardGrabEnabled(false);
    roundTrip();
}

void X11Popup::endWatches() {
    qGuiApp->removeNativeEventFilter(this);
    panels_.typing_ = nullptr;
    presses_->want(0);
    idle_.stop();
}

void X11Popup::loseTyping(Dismissal reason) {
    dismiss(reason);
    releaseTyping();
}

void X11Popup::orderOut() {
    releaseTyping();
    if (isShown())
        close();
}

void X11Popup::dismiss(Dismissal reason) {
    if (!typing_ || std::exchange(dismissed_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this, reason, shows = shows_] {
            if (shows == shows_ && isShown() && onDismiss)
                onDismiss(reason);
        },
        Qt::QueuedConnection);
}

void X11Popup::handlePress(const X11RawInput::Event &press) {
    const bool isClick = press.detail == leftButton || press.detail == rightButton;
    if (!typing_ || !isClick || press.isBefore(shown_))
        return;
    if (isOurs(panels_.desktop_.input.pointer().toplevel))
        idle_.start();
    else
        dismiss(Dismissal::outsideClick);
}

/// The popup, or a menu or a tip that it opened.
bool X11Popup::isOurs(xcb_window_t toplevel) {
    if (toplevel == id())
        return true;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(), [&](const QWindow *window) {
        return window->handle() && xcb_window_t(window->winId()) == toplevel &&
               (window->type() == Qt::Popup || window->type() == Qt::ToolTip);
    });
}

bool X11Popup::nativeEventFilter(const QByteArray &, void *message, qintptr *) {
    const auto &event = *static_cast<const xcb_generic_event_t *>(message);
    switch (X11Session::type(event)) {
    case XCB_KEY_PRESS: {
        const auto &key = reinterpret_cast<const xcb_key_press_event_t &>(event);
        if (key.event != id())
            return false;
        idle_.start();
        return takePress(key);
    }
    case XCB_KEY_RELEASE: {
        const auto &key = reinterpret_cast<const xcb_key_release_event_t &>(event);
        return key.event == id() && takeRelease(key);
    }
    case XCB_FOCUS_OUT: {
        const auto &focus = reinterpret_cast<const xcb_focus_out_event_t &>(event);
        // An earlier show's end may be told only now.
        const bool isThisGrab = std::int32_t(event.full_sequence - grabbed_) >= 0;
        if (focus.event == id() && focus.mode == XCB_NOTIFY_MODE_UNGRAB && isThisGrab)
            loseTyping(Dismissal::typingLost);
        return false;
    }
    default:
        return false;
    }
}

/// True for a hotkey and its repeats. Only the window's own events tell which presses are repeats: other
/// connections hear of the key's end earlier.
bool X11Popup::takePress(const xcb_key_press_event_t &key) {
    // Qt's connection is told of a repeat as of a release and a press at the same time.
    const bool isRepeat = released_.detail == key.detail && released_.time == key.time;
    settleRelease(isRepeat);
    if (hotkeys_.test(key.detail))
        return true;
    // A hotkey may be the end of this popup.
    hotkeys_.set(key.detail);
    if (panels_.desktop_.hotkeys.takePress(key))
        return true;
    hotkeys_.reset(key.detail);
    return false;
}

bool X11Popup::takeRelease(const xcb_key_release_event_t &key) {
    settleRelease(false);
    const bool ours = hotkeys_.test(key.detail);
    if (ours)
        released_ = key;
    return panels_.desktop_.hotkeys.takeRelease(key) || ours;
}

/// What came next shows whether the last release was one.
void X11Popup::settleRelease(bool isRepeat) {
    if (!isRepeat)
        hotkeys_.reset(released_.detail);
    released_ = {};
}

bool X11Popup::eventFilter(QObject *content, QEvent *event) {
    if (typing_ && (event->type() == QEvent::MouseMove || event->type() == QEvent::Wheel))
        idle_.start();
    return QObject::eventFilter(content, event);
}

void X11Popup::applyShape() {
    const bool isSeen = panels_.blends() || opacity() > 0;
    if (isSeen && std::exchange(isCut_, false))
        uncut(XCB_SHAPE_SK_BOUNDING);
    else if (!isSeen && !std::exchange(isCut_, true))
        cut(XCB_SHAPE_SK_BOUNDING, {});
    if (takesClicks_)
        uncut(XCB_SHAPE_SK_INPUT);
    else
        cut(XCB_SHAPE_SK_INPUT, {});
}

}  // namespace pimloft
