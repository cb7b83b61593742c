// SPDX-License-Identifier: MIT
#include "platform/events/x11_key_tap.h"

#include <QFile>

namespace pimloft {

X11KeyTap::X11KeyTap(X11Keyboard &keyboard, QString guard)
    : keyboard_(keyboard), guard_(QFile::encodeName(guard).toStdString()) {
}

X11KeyTap::~X11KeyTap() {
    remove();
}

bool X11KeyTap::install(std::shared_ptr<KeyFilter> filter) {
    remove();
    if (!lock_) {
        lock_.emplace();
        connect(&*lock_, &ScreenLock::locked, this, [this] { setLocked(true); });
        connect(&*lock_, &ScreenLock::unlocked, this, [this] { setLocked(false); });
    }
    filter_ = std::move(filter);
    if (start())
        return true;
    filter_.reset();
    return false;
}

bool X11KeyTap::start() {
    end();
    lost_ = false;
    tap_ = TapThread::start(filter_, guard_, [this, start = ++starts_] {
        QMetaObject::invokeMethod(
            this, [this, start] { handleLoss(start); }, Qt::QueuedConnection);
    });
    if (!tap_)
        return false;
    tap_->mailbox().setFrontmost(frontmost_);
    tap_->mailbox().setPassing(locked_);
    keyboard_.setTypist(this);
    return true;
}

void X11KeyTap::enable() {
    if (filter_ && (!tap_ || lost_))
        start();
}

void X11KeyTap::remove() {
    end();
    filter_.reset();
}

void X11KeyTap::end() {
    if (!tap_)
        return;
    tap_.reset();
    keyboard_.setTypist(nullptr);
}

void X11KeyTap::setFrontmost(std::string bundleId) {
    frontmost_ = std::move(bundleId);
    if (tap_)
        tap_->mailbox().setFrontmost(frontmost_);
    // Not every locker says when it has gone, but it lets no other program come to the front.
    if (locked_ && !frontmost_.empty() && !lock_->tellsOfEnd())
        setLocked(false);
}

void X11KeyTap::setLocked(bool locked) {
    locked_ = locked;
    if (tap_)
        tap_->mailbox().setPassing(locked);
}

void X11KeyTap::handleLoss(unsigned start) {
    if (!tap_ || start != starts_)
        return;
    lost_ = true;
    if (onNotice)
        onNotice(Notice::disabledByTimeout);
}

bool X11KeyTap::post(xcb_keycode_t key, const std::vector<xcb_keycode_t> &modifiers) {
    return tap_ && tap_->mailbox().post({key, modifiers});
}

std::optional<KeySet> X11KeyTap::held() const {
    return tap_ ? tap_->mailbox().held() : std::nullopt;
}

}  // namespace pimloft
