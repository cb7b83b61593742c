// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <cstdint>
#include <memory>
#include <optional>

namespace pimloft {

/// A window of any program: a reference that stays valid, though the window itself may be gone.
class WindowElement {
public:
    virtual ~WindowElement() = default;
};
using WindowReference = std::shared_ptr<const WindowElement>;

/// A process of this computer.
enum class ProcessId : std::int32_t {};

/// Other programs' windows. Main thread.
///
/// Points and rectangles are in accessibility points: origin at the top-left corner of the primary display,
/// y growing downwards. A window's rectangle is what the user sees of it: with its title bar, without its
/// shadow. Every read answers nothing when the window is gone or the desktop does not let us.
class WindowService {
public:
    virtual ~WindowService() = default;

    /// Whether the desktop lets this process observe and control other programs. Asks nobody.
    virtual bool isTrusted() = 0;

    /// The window that has the keyboard; nothing for the desktop itself, its docks and panels.
    virtual std::optional<WindowReference> focusedWindow() = 0;

    virtual std::optional<ProcessId> processId(const WindowReference &window) = 0;
    virtual std::optional<QPointF> position(const WindowReference &window) = 0;
    virtual std::optional<QSizeF> size(const WindowReference &window) = 0;

    /// Moves and resizes a window, leaving a maximised, fullscreen or shaded state first. Returns at once;
    /// the newest frame asked for a window wins, and reads answer it until the window has settled. A program
    /// that refuses the size keeps its own nearest one at this position.
    virtual void place(const WindowReference &window, const QRectF &frame) = 0;
};

}  // namespace pimloft
