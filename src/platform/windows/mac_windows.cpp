// SPDX-License-Identifier: MIT
#include "platform/windows/mac_windows.h"

#include "platform/mac/cf_ref.h"

#include <ApplicationServices/ApplicationServices.h>

namespace pimloft {

namespace {

/// A program that hangs would else hold up the main thread for seconds, and with it every key of the user.
constexpr float patienceInSeconds = 0.5F;

struct MacWindow final : WindowElement {
    explicit MacWindow(CfRef<AXUIElementRef> owned) : element(std::move(owned)) {}

    const CfRef<AXUIElementRef> element;
};

AXUIElementRef elementOf(const WindowReference &window) {
    const auto *known = dynamic_cast<const MacWindow *>(window.get());
    return known ? known->element.get() : nullptr;
}

/// The attribute's value where it is of the type that `T` stands for.
template <typename T>
CfRef<T> read(AXUIElementRef element, CFStringRef attribute, CFTypeID type) {
    CFTypeRef value = nullptr;
    if (!element || AXUIElementCopyAttributeValue(element, attribute, &value) != kAXErrorSuccess)
        return {};
    CfRef<CFTypeRef> owned(value);
    if (!owned || CFGetTypeID(owned.get()) != type)
        return {};
    return CfRef<T>(static_cast<T>(CFRetain(owned.get())));
}

template <typename Value>
std::optional<Value> readValue(AXUIElementRef element, CFStringRef attribute, AXValueType type) {
    const auto packed = read<AXValueRef>(element, attribute, AXValueGetTypeID());
    Value value{};
    if (!packed || !AXValueGetValue(packed.get(), type, &value))
        return std::nullopt;
    return value;
}

template <typename Value>
void writeValue(AXUIElementRef element, CFStringRef attribute, AXValueType type, const Value &value) {
    const CfRef packed(AXValueCreate(type, &value));
    if (packed)
        AXUIElementSetAttributeValue(element, attribute, packed.get());
}

}  // namespace

MacWindows::MacWindows() {
    const CfRef everything(AXUIElementCreateSystemWide());
    if (everything)
        AXUIElementSetMessagingTimeout(everything.get(), patienceInSeconds);
}

bool MacWindows::isTrusted() {
    return AXIsProcessTrusted();
}

std::optional<WindowReference> MacWindows::focusedWindow() {
    const CfRef everything(AXUIElementCreateSystemWide());
    const auto application =
        read<AXUIElementRef>(everything.get(), kAXFocusedApplicationAttribute, AXUIElementGetTypeID());
    auto window = read<AXUIElementRef>(application.get(), kAXFocusedWindowAttribute, AXUIElementGetTypeID());
    if (!window)
        return std::nullopt;
    return std::make_shared<MacWindow>(std::move(window));
}

std::optional<ProcessId> MacWindows::processId(const WindowReference &window) {
    const AXUIElementRef element = elementOf(window);
    pid_t process = 0;
    if (!element || AXUIElementGetPid(element, &process) != kAXErrorSuccess)
        return std::nullopt;
    return ProcessId(process);
}

std::optional<QPointF> MacWindows::position(const WindowReference &window) {
    const auto point =
        readValue<CGPoint>(elementOf(window), kAXPositionAttribute, AXValueType(kAXValueTypeCGPoint));
    return point ? std::optional(QPointF(point->x, point->y)) : std::nullopt;
}

std::optional<QSizeF> MacWindows::size(const WindowReference &window) {
    const auto size = readValue<CGSize>(elementOf(window), kAXSizeAttribute, AXValueType(kAXValueTypeCGSize));
    return size ? std::optional(QSizeF(size->width, size->height)) : std::nullopt;
}

void MacWindows::place(const WindowReference &window, const QRectF &frame) {
    const AXUIElementRef element = elementOf(window);
    if (!element)
        return;
    const CGPoint position{frame.x(), frame.y()};
    const CGSize size{frame.width(), frame.height()};
    // A window is kept on its display while it grows, so it may have to be moved before and after.
    writeValue(element, kAXPositionAttribute, AXValueType(kAXValueTypeCGPoint), position);
    writeValue(element, kAXSizeAttribute, AXValueType(kAXValueTypeCGSize), size);
    writeValue(element, kAXPositionAttribute, AXValueType(kAXValueTypeCGPoint), position);
}

}  // namespace pimloft
