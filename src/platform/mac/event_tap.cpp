// SPDX-License-Identifier: MIT
#include "platform/mac/event_tap.h"

namespace pimloft {

std::unique_ptr<EventTap> EventTap::install(CGEventTapOptions options, CGEventMask events,
                                            CGEventTapCallBack callback, void *owner) {
    CfRef port(CGEventTapCreate(kCGHIDEventTap, kCGHeadInsertEventTap, options, events, callback, owner));
    if (!port)
        return nullptr;
    CfRef source(CFMachPortCreateRunLoopSource(kCFAllocatorDefault, port.get(), 0));
    if (!source)
        return nullptr;
    return std::unique_ptr<EventTap>(new EventTap(std::move(port), std::move(source)));
}

EventTap::EventTap(CfRef<CFMachPortRef> port, CfRef<CFRunLoopSourceRef> source)
    : port_(std::move(port)), source_(std::move(source)) {
    CFRunLoopAddSource(CFRunLoopGetCurrent(), source_.get(), kCFRunLoopCommonModes);
    enable();
}

EventTap::~EventTap() {
    CGEventTapEnable(port_.get(), false);
    CFRunLoopRemoveSource(CFRunLoopGetCurrent(), source_.get(), kCFRunLoopCommonModes);
}

bool EventTap::isEnabled() const {
    return CGEventTapIsEnabled(port_.get());
}

void EventTap::enable() {
    CGEventTapEnable(port_.get(), true);
}

}  // namespace pimloft
