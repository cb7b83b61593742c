// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"

namespace pimloft {

/// Other programs' windows through the accessibility interface. Every call waits for the other program, at
/// most for a moment. Main thread.
class MacWindows final : public WindowService {
public:
    MacWindows();

    bool isTrusted() override;
    std::optional<WindowReference> focusedWindow() override;
    std::optional<ProcessId> processId(const WindowReference &window) override;
    std::optional<QPointF> position(const WindowReference &window) override;
    std::optional<QSizeF> size(const WindowReference &window) override;
    void place(const WindowReference &window, const QRectF &frame) override;
};

}  // namespace pimloft
