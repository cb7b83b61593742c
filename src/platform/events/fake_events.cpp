// SPDX-License-Identifier: MIT
#include "platform/events/fake_events.h"

#include <gtest/gtest.h>

namespace pimloft {

class FakeMouseWatch::Tap final : public MouseTap {
public:
    explicit Tap(FakeMouseWatch &watch) : watch_(watch) {}
    ~Tap() override {
        watch_.handler_ = nullptr;
        watch_.log_.line(QStringLiteral("stop watching the mouse"));
    }

private:
    FakeMouseWatch &watch_;
};

std::unique_ptr<MouseTap> FakeMouseWatch::install(std::function<void(const MouseEvent &)> handler) {
    if (refuses)
        return nullptr;
    EXPECT_FALSE(handler_) << "a second mouse watch beside a running one";
    handler_ = std::move(handler);
    log_.line(QStringLiteral("watch the mouse"));
    return std::make_unique<Tap>(*this);
}

void FakeMouseWatch::send(MouseEventType type, QPointF location) {
    if (type == MouseEventType::leftDown)
        buttonIsDown_ = true;
    EXPECT_TRUE(buttonIsDown_) << "a test drags or releases without pressing";
    if (type == MouseEventType::leftUp)
        buttonIsDown_ = false;
    if (handler_)
        handler_({type, location});
}

void FakeKeyPoster::post(KeyCode key, KeyFlags modifiers) {
    log_.line(QStringLiteral("post key %1 with flags 0x%2")
                  .arg(std::uint16_t(key))
                  .arg(std::uint64_t(modifiers), 0, 16));
}

FakeKeyTap::~FakeKeyTap() {
    EXPECT_FALSE(filter_) << "a key tap that was never removed";
}

bool FakeKeyTap::install(std::shared_ptr<KeyFilter> filter) {
    EXPECT_TRUE(filter) << "a key tap without a filter";
    EXPECT_FALSE(filter_) << "a second filter beside an installed one";
    if (refuses)
        return false;
    filter_ = std::move(filter);
    enabled_ = true;
    log_.line(QStringLiteral("install key tap"));
    return true;
}

void FakeKeyTap::enable() {
    EXPECT_TRUE(filter_) << "a key tap enabled that is not installed";
    enabled_ = true;
    log_.line(QStringLiteral("enable key tap"));
}

void FakeKeyTap::remove() {
    if (!filter_)
        return;
    filter_.reset();
    enabled_ = false;
    log_.line(QStringLiteral("remove key tap"));
}

KeyEvent FakeKeyTap::press(KeyEvent event, Instant now) {
    return filter_ && enabled_ ? filter_->filter(event, frontmost_, now) : event;
}

void FakeKeyTap::disable(Notice notice) {
    enabled_ = false;
    if (onNotice)
        onNotice(notice);
}

}  // namespace pimloft
