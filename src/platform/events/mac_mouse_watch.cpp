// SPDX-License-Identifier: MIT
#include "platform/events/mac_mouse_watch.h"

#include "platform/events/mac_pointer.h"
#include "platform/mac/event_tap.h"

#include <QPointer>
#include <QTimer>

#include <chrono>
#include <optional>
#include <utility>

namespace pimloft {

namespace {

constexpr CGEventMask leftButtonEvents = CGEventMaskBit(kCGEventLeftMouseDown) |
                                         CGEventMaskBit(kCGEventLeftMouseUp) |
                                         CGEventMaskBit(kCGEventLeftMouseDragged);

/// Between two reports of a moving pointer: a frame of a fast screen.
constexpr std::chrono::milliseconds frame{8};

class MacMouseTap final : public QObject, public MouseTap {
public:
    explicit MacMouseTap(std::function<void(const MouseEvent &)> handler)
        : handler_(std::make_shared<std::function<void(const MouseEvent &)>>(std::move(handler))),
          tap_(EventTap::install(kCGEventTapOptionListenOnly, leftButtonEvents, callback, this)) {
        rest_.setSingleShot(true);
        rest_.setTimerType(Qt::PreciseTimer);
        rest_.setInterval(frame);
        rest_.callOnTimeout(this, [this] { reportDrag(); });
    }

    bool isRunning() const { return tap_ != nullptr; }

private:
    static CGEventRef callback(CGEventTapProxy, CGEventType type, CGEventRef event, void *owner) {
        if (owner && event)
            static_cast<MacMouseTap *>(owner)->handle(type, event);
        return event;
    }

    /// Notices that the system has ended the tap are among what is not for us.
    void handle(CGEventType type, CGEventRef event) {
        const CGPoint point = CGEventGetLocation(event);
        const QPointF location(point.x, point.y);
        if (type == kCGEventLeftMouseDown)
            press(location);
        else if (type == kCGEventLeftMouseDragged)
            drag(location);
        else if (type == kCGEventLeftMouseUp)
            release(location);
    }

    void press(QPointF location) {
        isDown_ = true;
        pending_.reset();
        report({MouseEventType::leftDown, location});
    }

    void drag(QPointF location) {
        if (!isDown_)
            return;
        pending_ = location;
        if (!rest_.isActive())
            reportDrag();
    }

    void release(QPointF location) {
        if (!isDown_ || !reportDrag())
            return;
        isDown_ = false;
        rest_.stop();
        report({MouseEventType::leftUp, location});
    }

    /// False when the handler destroyed the tap.
    bool reportDrag() {
        const auto location = std::exchange(pending_, std::nullopt);
        if (!location)
            return true;
        rest_.start();
        return report({MouseEventType::leftDragged, *location});
    }

    bool report(const MouseEvent &event) {
        const QPointer<QObject> self(this);
        const auto handler = handler_;
        (*handler)(event);
        return self;
    }

    std::shared_ptr<std::function<void(const MouseEvent &)>> handler_;
    QTimer rest_;
    std::optional<QPointF> pending_;  ///< where the pointer is, unless that was reported
    bool isDown_ = false;
    std::unique_ptr<EventTap> tap_;
};

}  // namespace

std::unique_ptr<MouseTap> MacMouseWatch::install(std::function<void(const MouseEvent &)> handler) {
    auto tap = std::make_unique<MacMouseTap>(std::move(handler));
    if (!tap->isRunning())
        return nullptr;
    return tap;
}

QPointF MacMouseWatch::location() {
    const MacPoint point = pointerLocation();
    return {point.x, point.y};
}

}  // namespace pimloft
