// SPDX-License-Identifier: MIT
#include "fake_ax.h"

#include "fake_cf.h"

#include <cstring>

namespace pimloft::test::mac {

namespace {

struct Element : Object {
    enum Kind { system, application, window } kind;
    explicit Element(Kind of) : kind(of) {}
};

struct Value : Object {
    AXValueType type{};
    CGPoint pair{};  ///< a size has the same form
};

CFTypeRef valueOf(const std::string &attribute) {
    const FocusedWindow &state = focusedWindow();
    if (state.hasOddValues)
        return makeString("odd");
    const bool isPosition = attribute == "AXPosition";
    const CGPoint size{state.size.width, state.size.height};
    return AXValueCreate(isPosition ? kAXValueTypeCGPoint : kAXValueTypeCGSize,
                         isPosition ? &state.position : &size);
}

CFTypeRef read(const Element &element, const std::string &attribute) {
    const FocusedWindow &state = focusedWindow();
    if (!state.isTrusted)
        return nullptr;
    if (element.kind == Element::system && attribute == "AXFocusedApplication" && state.hasApplication)
        return new Element(Element::application);
    if (element.kind == Element::application && attribute == "AXFocusedWindow" && state.hasWindow)
        return new Element(Element::window);
    const bool isGeometry = attribute == "AXPosition" || attribute == "AXSize";
    return element.kind == Element::window && isGeometry && !state.isGone ? valueOf(attribute) : nullptr;
}

}  // namespace

FocusedWindow &focusedWindow() {
    static FocusedWindow state;
    return state;
}

void resetApplicationServices() {
    focusedWindow() = {};
}

}  // namespace pimloft::test::mac

using namespace pimloft::test::mac;

extern "C" {

Boolean AXIsProcessTrusted(void) {
    return focusedWindow().isTrusted;
}

CFTypeID AXUIElementGetTypeID(void) {
    const Element example(Element::system);
    return CFGetTypeID(&example);
}

AXUIElementRef AXUIElementCreateSystemWide(void) {
    return refOf<AXUIElementRef>(new Element(Element::system));
}

AXError AXUIElementCopyAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef *value) {
    const auto *element = as<Element>(reference, "AXUIElementCopyAttributeValue");
    if (!element)
        return kAXErrorInvalidUIElement;
    note("read " + asciiOf(attribute));
    *value = read(*element, asciiOf(attribute));
    return *value ? kAXErrorSuccess : kAXErrorNoValue;
}

AXError AXUIElementSetAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef value) {
    const auto *element = as<Element>(reference, "AXUIElementSetAttributeValue");
    const auto *packed = as<Value>(value, "AXUIElementSetAttributeValue");
    if (!element || !packed)
        return kAXErrorInvalidUIElement;
    const std::string name = asciiOf(attribute);
    const AXValueType wanted = name == "AXPosition" ? kAXValueTypeCGPoint : kAXValueTypeCGSize;
    if (packed->type != wanted)
        complain("AXUIElementSetAttributeValue: a value of another type");
    note("set " + name + " (" + plain(packed->pair.x) + ", " + plain(packed->pair.y) + ')');
    return focusedWindow().isTrusted ? kAXErrorSuccess : kAXErrorAPIDisabled;
}

AXError AXUIElementGetPid(AXUIElementRef reference, pid_t *pid) {
    if (!as<Element>(reference, "AXUIElementGetPid") || focusedWindow().isGone)
        return kAXErrorInvalidUIElement;
    *pid = focusedWindow().process;
    return kAXErrorSuccess;
}

AXError AXUIElementSetMessagingTimeout(AXUIElementRef reference, float timeoutInSeconds) {
    const auto *element = as<Element>(reference, "AXUIElementSetMessagingTimeout");
    if (element && element->kind != Element::system)
        complain("AXUIElementSetMessagingTimeout: for one element only");
    focusedWindow().patience = timeoutInSeconds;
    return kAXErrorSuccess;
}

CFTypeID AXValueGetTypeID(void) {
    const Value example;
    return CFGetTypeID(&example);
}

AXValueRef AXValueCreate(AXValueType type, const void *value) {
    if (focusedWindow().refusesValues)
        return nullptr;
    auto *packed = new Value;
    packed->type = type;
    std::memcpy(&packed->pair, value, sizeof packed->pair);
    return refOf<AXValueRef>(packed);
}

Boolean AXValueGetValue(AXValueRef reference, AXValueType type, void *result) {
    const auto *value = as<Value>(reference, "AXValueGetValue");
    if (!value || value->type != type)
        return false;
    std::memcpy(result, &value->pair, sizeof value->pair);
    return true;
}

}  // extern "C"
