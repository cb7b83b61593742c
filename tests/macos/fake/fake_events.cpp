// SPDX-License-Identifier: MIT
#include "fake_events.h"

#include "fake_cf.h"

#include <algorithm>
#include <map>
#include <vector>

namespace pimloft::test::mac {

namespace {

bool mayTap = true;
bool mayPost = true;
bool canBeMade = true;
int newestTap = 0;

struct Port;
std::vector<Port *> ports;  // the newest last

struct Port : Object {
    Port() { ports.push_back(this); }
    ~Port() override {
        ports.erase(std::find(ports.begin(), ports.end(), this));
        if (isEnabled)
            complain("a tap is let go that was never disabled");
        if (!mode.empty())
            complain("a tap is let go while its source is on the run loop");
    }
    std::string name() const { return "tap " + std::to_string(number) + ": "; }

    int number = ++newestTap;
    CGEventTapOptions options{};
    CGEventMask mask = 0;
    CGEventTapCallBack callback = nullptr;
    void *owner = nullptr;
    bool isEnabled = false;
    std::string mode;  ///< of the run loop that its source is on
};

struct Source : Object {
    explicit Source(Port *of) : port(of) { ++port->owners; }
    ~Source() override { CFRelease(port); }
    Port *port;
};

struct EventSource : Object {
    CGEventSourceStateID state{};
};

struct Event : Object {
    CGEventType type{};
    CGPoint location{};
    std::uint64_t flags = 0;
    bool hasFlags = false;
    std::map<CGEventField, std::int64_t> fields;
    int source = 0;
    bool isReadOnly = false;  ///< only listened to
};

/// Hands an event to the taps as the system does: the newest at the head first.
bool passThroughTaps(Event &event) {
    const std::vector<Port *> now(ports.rbegin(), ports.rend());
    for (Port *port : now) {
        const bool runs = std::find(ports.begin(), ports.end(), port) != ports.end() && port->isEnabled &&
                          !port->mode.empty();
        if (!runs || !(port->mask & CGEventMaskBit(event.type)))
            continue;
        event.isReadOnly = port->options == kCGEventTapOptionListenOnly;
        const bool mayHoldBack = !event.isReadOnly;
        const auto reference = refOf<CGEventRef>(&event);
        const CGEventRef result = port->callback(nullptr, event.type, reference, port->owner);
        if (result && result != reference)
            complain("a tap answered another event");
        if (!result && mayHoldBack)
            return false;
        if (!result)
            complain("a tap that only listens answered no event");
    }
    return true;
}

const char *nameOf(CGEventType type) {
    return type == kCGEventKeyDown ? "down" : type == kCGEventKeyUp ? "up" : "other";
}

int runLoop;

}  // namespace

void resetEvents() {
    mayTap = mayPost = canBeMade = true;
    newestTap = 0;
}

void setMayTap(bool may) {
    mayTap = may;
}
void setMayPost(bool may) {
    mayPost = may;
}
void setEventsCanBeMade(bool can) {
    canBeMade = can;
}

Delivered deliverKey(CGEventType type, std::int64_t key, std::uint64_t flags) {
    Event event;
    event.type = type;
    event.flags = flags;
    event.fields[kCGKeyboardEventKeycode] = key;
    const bool passed = passThroughTaps(event);
    return {!passed, event.fields[kCGKeyboardEventKeycode], event.flags};
}

void deliverMouse(CGEventType type, double x, double y) {
    Event event;
    event.type = type;
    event.location = {x, y};
    passThroughTaps(event);
}

void disableTaps(CGEventType reason) {
    const std::vector<Port *> now = ports;
    for (Port *port : now) {
        port->isEnabled = false;
        port->callback(nullptr, reason, nullptr, port->owner);
    }
}

int runningTaps() {
    return int(std::count_if(ports.begin(), ports.end(),
                             [](const Port *port) { return port->isEnabled && !port->mode.empty(); }));
}

}  // namespace pimloft::test::mac

using namespace pimloft::test::mac;

extern "C" {

CFRunLoopRef CFRunLoopGetMain(void) {
    return reinterpret_cast<CFRunLoopRef>(&runLoop);
}

CFRunLoopRef CFRunLoopGetCurrent(void) {
    return CFRunLoopGetMain();
}

void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef reference, CFRunLoopMode mode) {
    const auto *source = as<Source>(reference, "CFRunLoopAddSource");
    if (!source)
        return;
    if (loop != CFRunLoopGetMain() || !source->port->mode.empty())
        complain("CFRunLoopAddSource: added twice, or to no run loop");
    source->port->mode = asciiOf(mode);
    note(source->port->name() + "add source in " + source->port->mode);
}

void CFRunLoopRemoveSource(CFRunLoopRef, CFRunLoopSourceRef reference, CFRunLoopMode mode) {
    const auto *source = as<Source>(reference, "CFRunLoopRemoveSource");
    if (!source)
        return;
    if (source->port->mode != asciiOf(mode))
        complain("CFRunLoopRemoveSource: was not added in this mode");
    source->port->mode.clear();
    note(source->port->name() + "remove source in " + asciiOf(mode));
}

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef, CFMachPortRef reference, CFIndex order) {
    auto *port = as<Port>(reference, "CFMachPortCreateRunLoopSource");
    if (!port)
        return nullptr;
    note(port->name() + "create source of order " + std::to_string(order));
    return refOf<CFRunLoopSourceRef>(new Source(port));
}

CFMachPortRef CGEventTapCreate(CGEventTapLocation location, CGEventTapPlacement place,
                               CGEventTapOptions options, CGEventMask mask, CGEventTapCallBack callback,
                               void *owner) {
    if (!callback)
        complain("CGEventTapCreate: no callback");
    note("create tap at location " + std::to_string(location) + ", place " + std::to_string(place) +
         ", options " + std::to_string(options) + ", mask " + hex(mask) + (owner ? "" : ", without owner"));
    if (!mayTap)
        return nullptr;
    auto *port = new Port;
    port->options = options;
    port->mask = mask;
    port->callback = callback;
    port->owner = owner;
    // The system enables a new tap by itself.
    port->isEnabled = true;
    return refOf<CFMachPortRef>(port);
}

void CGEventTapEnable(CFMachPortRef reference, bool enable) {
    auto *port = as<Port>(reference, "CGEventTapEnable");
    if (!port)
        return;
    port->isEnabled = enable;
    note(port->name() + (enable ? "enable" : "disable"));
}

bool CGEventTapIsEnabled(CFMachPortRef reference) {
    const auto *port = as<Port>(reference, "CGEventTapIsEnabled");
    return port && port->isEnabled;
}

CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID state) {
    auto *source = new EventSource;
    source->state = state;
    return refOf<CGEventSourceRef>(source);
}

CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef reference, CGKeyCode key, bool keyDown) {
    if (!canBeMade)
        return nullptr;
    auto *event = new Event;
    event->type = keyDown ? kCGEventKeyDown : kCGEventKeyUp;
    event->fields[kCGKeyboardEventKeycode] = key;
    if (const auto *source = as<EventSource>(reference, "CGEventCreateKeyboardEvent"))
        event->source = source->state;
    return refOf<CGEventRef>(event);
}

CGEventFlags CGEventGetFlags(CGEventRef reference) {
    const auto *event = as<Event>(reference, "CGEventGetFlags");
    return event ? event->flags : 0;
}

void CGEventSetFlags(CGEventRef reference, CGEventFlags flags) {
    auto *event = as<Event>(reference, "CGEventSetFlags");
    if (!event)
        return;
    if (event->isReadOnly)
        complain("CGEventSetFlags: on an event that is only listened to");
    event->flags = flags;
    event->hasFlags = true;
}

int64_t CGEventGetIntegerValueField(CGEventRef reference, CGEventField field) {
    auto *event = as<Event>(reference, "CGEventGetIntegerValueField");
    return event ? event->fields[field] : 0;
}

void CGEventSetIntegerValueField(CGEventRef reference, CGEventField field, int64_t value) {
    auto *event = as<Event>(reference, "CGEventSetIntegerValueField");
    if (!event)
        return;
    if (event->isReadOnly)
        complain("CGEventSetIntegerValueField: on an event that is only listened to");
    event->fields[field] = value;
}

CGPoint CGEventGetLocation(CGEventRef reference) {
    const auto *event = as<Event>(reference, "CGEventGetLocation");
    return event ? event->location : CGPoint{};
}

void CGEventPost(CGEventTapLocation location, CGEventRef reference) {
    auto *event = as<Event>(reference, "CGEventPost");
    if (!event)
        return;
    note(std::string("post ") + nameOf(event->type) + ' ' +
         std::to_string(event->fields[kCGKeyboardEventKeycode]) + ", flags " +
         (event->hasFlags ? hex(event->flags) : "of the source") + ", source " +
         std::to_string(event->source) + ", at location " + std::to_string(location));
}

bool CGPreflightPostEventAccess(void) {
    return mayPost;
}

}  // extern "C"
