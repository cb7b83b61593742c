// SPDX-License-Identifier: MIT
#include "platform/events/x11_mouse_watch.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <chrono>

namespace pimloft {

namespace {

/// Between two looks at a moving pointer: less than a frame of a usual screen, and so long that a drag costs
/// well below a hundredth of a core.
constexpr std::chrono::milliseconds lookInterval{10};

constexpr unsigned buttons = X11RawInput::buttonPress | X11RawInput::buttonRelease;

class X11MouseTap final : public QObject, public MouseTap {
public:
    X11MouseTap(X11RawInput &input, X11Displays &displays, std::function<void(const MouseEvent &)> handler)
        : input_(input), displays_(displays),
          handler_(std::make_shared<std::function<void(const MouseEvent &)>>(std::move(handler))),
          watch_(input.watch([this](const X11RawInput::Event &event) { handle(event.kind); })) {
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setInterval(lookInterval);
        connect(&timer_, &QTimer::timeout, this, &X11MouseTap::lookWhileMoving);
        watch_->want(buttons);
    }

private:
    void handle(X11RawInput::Kind kind) {
        if (kind == X11RawInput::buttonPress && !isDown_)
            press();
        else if (kind == X11RawInput::buttonRelease && isDown_)
            look();
        else if (kind == X11RawInput::motion && isDown_ && !timer_.isActive())
            startLooking();
    }

    /// The device tells which of its buttons was pressed; whether that acts as the left one, the pointer.
    void press() {
        const X11RawInput::Pointer pointer = input_.pointer();
        if (!pointer.leftIsDown)
            return;
        isDown_ = true;
        last_ = pointer.position;
        watch_->want(buttons | X11RawInput::motion);
        report(MouseEventType::leftDown);
    }

    void startLooking() {
        watch_->want(buttons);
        timer_.start();
        look();
    }

    void lookWhileMoving() {
        const QPoint before = last_;
        if (!look() || !isDown_ || last_ != before)
            return;
        timer_.stop();
        watch_->want(buttons | X11RawInput::motion);
        // It may have moved just before the doorbell was on.
        if (look() && isDown_ && last_ != before)
            startLooking();
    }

    /// Reports where the pointer is if it moved, and the release if the button is up. False when the handler
    /// destroyed the tap.
    bool look() {
        const X11RawInput::Pointer pointer = input_.pointer();
        if (pointer.position != last_) {
            last_ = pointer.position;
            if (!report(MouseEventType::leftDragged))
                return false;
        }
        if (pointer.leftIsDown)
            return true;
        isDown_ = false;
        timer_.stop();
        watch_->want(buttons);
        return report(MouseEventType::leftUp);
    }

    bool report(MouseEventType type) {
        const QPointer<QObject> self(this);
        const auto handler = handler_;
        (*handler)({type, displays_.pointSpace().toAccessibility(last_)});
        return self;
    }

    X11RawInput &input_;
    X11Displays &displays_;
    std::shared_ptr<std::function<void(const MouseEvent &)>> handler_;
    std::unique_ptr<X11RawInput::Watch> watch_;
    QTimer timer_;
    QPoint last_;  ///< native pixels
    bool isDown_ = false;
};

}  // namespace

std::unique_ptr<MouseTap> X11MouseWatch::install(std::function<void(const MouseEvent &)> handler) {
    if (!input_.isSupported())
        return nullptr;
    return std::make_unique<X11MouseTap>(input_, displays_, std::move(handler));
}

QPointF X11MouseWatch::location() {
    return displays_.pointSpace().toDesktop(input_.pointer().position);
}

}  // namespace pimloft
