// SPDX-License-Identifier: MIT
#include "platform/windows/fake_windows.h"

#include <gtest/gtest.h>

namespace pimloft {

FakeWindows::Window &FakeWindows::open(const QString &name, ProcessId process, const QRectF &frame) {
    auto window = std::make_shared<Window>();
    window->name = name;
    window->process = process;
    window->frame = frame;
    windows_.push_back(window);
    focused_ = window.get();
    return *window;
}

std::optional<WindowReference> FakeWindows::focusedWindow() {
    ++focusedWindowQueries;
    if (!trusted)
        return std::nullopt;
    for (const auto &window : windows_)
        if (window.get() == focused_ && !window->gone)
            return window;
    return std::nullopt;
}

FakeWindows::Window *FakeWindows::resolve(const WindowReference &window) {
    for (const auto &known : windows_)
        if (known == window)
            return trusted && !known->gone ? known.get() : nullptr;
    ADD_FAILURE() << "a window that this desktop never answered";
    return nullptr;
}

std::optional<ProcessId> FakeWindows::processId(const WindowReference &window) {
    const Window *known = resolve(window);
    return known && known->processKnown ? std::optional(known->process) : std::nullopt;
}

std::optional<QPointF> FakeWindows::position(const WindowReference &window) {
    const Window *known = resolve(window);
    return known && known->readable ? std::optional(known->frame.topLeft()) : std::nullopt;
}

std::optional<QSizeF> FakeWindows::size(const WindowReference &window) {
    const Window *known = resolve(window);
    return known && known->readable && known->sizeKnown ? std::optional(known->frame.size()) : std::nullopt;
}

void FakeWindows::place(const WindowReference &window, const QRectF &frame) {
    Window *known = resolve(window);
    if (!known)
        return;
    known->frame = frame;
    log_.line(QStringLiteral("place %1 at %2").arg(known->name, describe(frame)));
}

}  // namespace pimloft
