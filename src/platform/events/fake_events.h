// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_poster.h"
#include "platform/events/key_tap.h"
#include "platform/events/mouse_watch.h"
#include "platform/fake_log.h"

namespace pimloft {

/// A mouse that a test moves. Only one watch at a time, as the product needs.
class FakeMouseWatch final : public MouseWatch {
public:
    explicit FakeMouseWatch(FakeLog &log) : log_(log) {}

    std::unique_ptr<MouseTap> install(std::function<void(const MouseEvent &)> handler) override;

    QPointF location() override { return pointer; }

    bool isWatched() const { return bool(handler_); }
    void down(QPointF location) { send(MouseEventType::leftDown, location); }
    void drag(QPointF location) { send(MouseEventType::leftDragged, location); }
    void up(QPointF location) { send(MouseEventType::leftUp, location); }

    bool refuses = false;
    QPointF pointer;  ///< in desktop points; where the events happened is told by each

private:
    class Tap;
    void send(MouseEventType type, QPointF location);

    FakeLog &log_;
    std::function<void(const MouseEvent &)> handler_;
    bool buttonIsDown_ = false;
};

/// Writes down what would have been typed.
class FakeKeyPoster final : public KeyPoster {
public:
    explicit FakeKeyPoster(FakeLog &log) : log_(log) {}
    void post(KeyCode key, KeyFlags modifiers) override;

private:
    FakeLog &log_;
};

/// A keyboard that a test presses, on the test's thread.
class FakeKeyTap final : public KeyTap {
public:
    explicit FakeKeyTap(FakeLog &log) : log_(log) {}
    ~FakeKeyTap() override;

    bool install(std::shared_ptr<KeyFilter> filter) override;
    void enable() override;
    void remove() override;
    void setFrontmost(std::string bundleId) override { frontmost_ = std::move(bundleId); }

    /// What the programs see of a physical key event: unchanged while no tap is installed or it is disabled.
    KeyEvent press(KeyEvent event, Instant now = {});
    /// The desktop switches the tap off and says so.
    void disable(Notice notice);

    bool refuses = false;

private:
    FakeLog &log_;
    std::shared_ptr<KeyFilter> filter_;
    std::string frontmost_;
    bool enabled_ = false;
};

}  // namespace pimloft
