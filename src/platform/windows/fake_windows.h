// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake_log.h"
#include "platform/windows/windows.h"

#include <vector>

namespace pimloft {

/// Windows of pretended programs. Calls without permission answer nothing and do nothing, as on a desktop.
class FakeWindows final : public WindowService {
public:
    struct Window final : WindowElement {
        QString name;
        ProcessId process{};
        QRectF frame;              ///< accessibility points
        bool readable = true;      ///< false: position and size cannot be had
        bool sizeKnown = true;     ///< false: its size cannot be had
        bool processKnown = true;  ///< false: its process cannot be had
        bool gone = false;         ///< the user closed it
    };

    explicit FakeWindows(FakeLog &log) : log_(log) {}

    /// Opens a window and gives it the keyboard.
    Window &open(const QString &name, ProcessId process, const QRectF &frame);
    /// Gives the keyboard to a window, or to none.
    void focus(const Window *window) { focused_ = window; }

    bool isTrusted() override { return trusted; }
    std::optional<WindowReference> focusedWindow() override;
    std::optional<ProcessId> processId(const WindowReference &window) override;
    std::optional<QPointF> position(const WindowReference &window) override;
    std::optional<QSizeF> size(const WindowReference &window) override;
    void place(const WindowReference &window, const QRectF &frame) override;

    bool trusted = true;
    int focusedWindowQueries = 0;

private:
    Window *resolve(const WindowReference &window);

    FakeLog &log_;
    std::vector<std::shared_ptr<Window>> windows_;
    const Window *focused_ = nullptr;
};

}  // namespace pimloft
