// SPDX-License-Identifier: MIT
#include "platform/events/mac_key_tap.h"

#include "platform/mac/event_tap.h"
#include "platform/mac/posted_key.h"

#include <utility>

namespace pimloft {

namespace {

constexpr CGEventMask keyEvents =
    CGEventMaskBit(kCGEventKeyDown) | CGEventMaskBit(kCGEventKeyUp) | CGEventMaskBit(kCGEventFlagsChanged);

std::optional<KeyEventType> keyEventType(CGEventType type) {
    switch (type) {
    case kCGEventKeyDown:
        return KeyEventType::down;
    case kCGEventKeyUp:
        return KeyEventType::up;
    case kCGEventFlagsChanged:
        return KeyEventType::flagsChanged;
    default:
        return std::nullopt;
    }
}

std::optional<KeyTap::Notice> noticeOf(CGEventType type) {
    switch (type) {
    case kCGEventTapDisabledByTimeout:
        return KeyTap::Notice::disabledByTimeout;
    case kCGEventTapDisabledByUserInput:
        return KeyTap::Notice::disabledByUserInput;
    default:
        return std::nullopt;
    }
}

}  // namespace

struct MacKeyTap::Callback {
    /// Never holds an event back: answers the one that it was given, changed or not.
    static CGEventRef call(CGEventTapProxy, CGEventType type, CGEventRef event, void *owner) {
        if (auto *self = static_cast<MacKeyTap *>(owner))
            handle(*self, type, event);
        return event;
    }

    static void handle(MacKeyTap &self, CGEventType type, CGEventRef event) {
        if (const auto notice = noticeOf(type)) {
            // At once: what is typed before the main queue is reached would pass unchanged.
            self.enable();
            self.tell(*notice);
            return;
        }
        const auto known = keyEventType(type);
        if (!known || !event)
            return;
        const KeyEvent before{KeyCode(CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode)),
                              KeyFlags(CGEventGetFlags(event)), *known};
        const KeyEvent after = self.filter(before);
        if (after.key != before.key)
            CGEventSetIntegerValueField(event, kCGKeyboardEventKeycode, std::int64_t(after.key));
        if (after.flags != before.flags)
            CGEventSetFlags(event, CGEventFlags(after.flags));
    }
};

MacKeyTap::MacKeyTap(const Clock &clock) : clock_(clock) {
}

MacKeyTap::~MacKeyTap() {
    remove();
}

bool MacKeyTap::install(std::shared_ptr<KeyFilter> filter) {
    remove();
    tap_ = EventTap::install(kCGEventTapOptionDefault, keyEvents, Callback::call, this);
    if (tap_)
        filter_ = std::move(filter);
    return tap_ != nullptr;
}

void MacKeyTap::enable() {
    if (tap_ && !tap_->isEnabled())
        tap_->enable();
}

void MacKeyTap::remove() {
    tap_.reset();
    filter_.reset();
    releaseRewrittenKeys();
}

MacKeyTap::Status MacKeyTap::status() const {
    if (!tap_)
        return Status::resting;
    return tap_->isEnabled() ? Status::running : Status::ended;
}

KeyEvent MacKeyTap::filter(const KeyEvent &event) {
    if (!filter_)
        return event;
    const KeyEvent delivered = filter_->filter(event, frontmost_, clock_.now());
    remember(event.key, delivered);
    return delivered;
}

void MacKeyTap::remember(KeyCode pressed, const KeyEvent &delivered) {
    if (std::size_t(pressed) >= rewritten_.size())
        return;
    auto &rewritten = rewritten_[std::size_t(pressed)];
    if (delivered.type == KeyEventType::down)
        rewritten = delivered.key == pressed ? std::nullopt : std::optional(delivered.key);
    else if (delivered.type == KeyEventType::up && rewritten == delivered.key)
        rewritten.reset();
}

/// Without the tap these keys come up under their own names.
void MacKeyTap::releaseRewrittenKeys() {
    for (auto &rewritten : rewritten_)
        if (const auto key = std::exchange(rewritten, std::nullopt))
            postKey(*key, KeyStroke::up);
}

void MacKeyTap::tell(Notice notice) {
    QMetaObject::invokeMethod(
        &notices_,
        [this, notice] {
            if (onNotice)
                onNotice(notice);
        },
        Qt::QueuedConnection);
}

}  // namespace pimloft
