// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>

#include <functional>
#include <memory>

namespace pimloft {

enum class MouseEventType { leftDown, leftDragged, leftUp };

/// Something the left mouse button did, wherever on the desktop.
struct MouseEvent {
    MouseEventType type;
    QPointF location;  ///< accessibility points: from the primary display's top-left corner, y downwards
};

/// A running watch. Destroying it ends the watch; no event follows.
class MouseTap {
public:
    virtual ~MouseTap() = default;
};

/// Watches the left mouse button without altering or holding up anything. Main thread.
class MouseWatch {
public:
    virtual ~MouseWatch() = default;

    /// Starts a watch; nothing when the desktop refuses. `handler` is called on the main thread: a down
    /// first, dragged at most once a frame while the pointer moves, and up after the last dragged.
    [[nodiscard]] virtual std::unique_ptr<MouseTap>
    install(std::function<void(const MouseEvent &)> handler) = 0;

    /// Where the pointer is now, in desktop points: from the primary display's bottom-left corner, y upwards.
    /// Asks the desktop.
    virtual QPointF location() = 0;
};

}  // namespace pimloft
