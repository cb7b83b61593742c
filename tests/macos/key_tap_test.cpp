// SPDX-License-Identifier: MIT
#include "platform/events/mac_key_tap.h"

#include "fake_events.h"
#include "mac_test.h"

namespace pimloft::test {

namespace {

using mac::Delivered;
using mac::deliverKey;

/// Does what a test says, and keeps what it was asked.
struct PlannedFilter final : KeyFilter {
    KeyEvent filter(KeyEvent event, std::string_view frontmost, Instant) noexcept override {
        seen.push_back(event);
        front = frontmost;
        return plan ? plan(event) : event;
    }
    std::function<KeyEvent(KeyEvent)> plan;
    std::vector<KeyEvent> seen;
    std::string front;
};

class MacKeyTapTest : public MacTest {
protected:
    SystemClock clock_;
    std::shared_ptr<PlannedFilter> filter_ = std::make_shared<PlannedFilter>();
    MacKeyTap tap_{clock_};
};

TEST_F(MacKeyTapTest, isAnActiveTapOfTheHardwareAtTheHeadForThreeTypesOfEvents) {
    ASSERT_TRUE(tap_.install(filter_));
    EXPECT_EQ(log(), "create tap at location 0, place 0, options 0, mask 0x1c00\n"
                     "tap 1: create source of order 0\n"
                     "tap 1: add source in kCFRunLoopCommonModes\n"
                     "tap 1: enable\n");
}

TEST_F(MacKeyTapTest, isDisabledAndTakenOffTheRunLoopWhenItIsRemoved) {
    ASSERT_TRUE(tap_.install(filter_));
    log();
    tap_.remove();
    EXPECT_EQ(log(), "tap 1: disable\n"
                     "tap 1: remove source in kCFRunLoopCommonModes\n");
    EXPECT_EQ(mac::liveObjects(), 0);
    tap_.remove();
    EXPECT_EQ(log(), "");
}

TEST_F(MacKeyTapTest, isRefusedWithoutPermission) {
    mac::setMayTap(false);
    EXPECT_FALSE(tap_.install(filter_));
    EXPECT_EQ(tap_.status(), MacKeyTap::Status::resting);
    EXPECT_EQ(filter_.use_count(), 1);
}

TEST_F(MacKeyTapTest, asksTheFilterAboutKeysAndModifiers) {
    tap_.setFrontmost("com.apple.Terminal");
    ASSERT_TRUE(tap_.install(filter_));
    deliverKey(kCGEventKeyDown, 9, 0x100000);
    deliverKey(kCGEventKeyUp, 9, 0x100000);
    deliverKey(kCGEventFlagsChanged, 60, 0x20000);
    EXPECT_THAT(filter_->seen,
                testing::ElementsAre(KeyEvent{Key::v, KeyFlags::command, KeyEventType::down},
                                     KeyEvent{Key::v, KeyFlags::command, KeyEventType::up},
                                     KeyEvent{Key::rightShift, KeyFlags::shift, KeyEventType::flagsChanged}));
    EXPECT_EQ(filter_->front, "com.apple.Terminal");
}

TEST_F(MacKeyTapTest, asksTheFilterAboutEveryFlagThatAnEventHas) {
    ASSERT_TRUE(tap_.install(filter_));
    deliverKey(kCGEventKeyDown, 115, 0xA00108);
    EXPECT_EQ(filter_->seen.front().flags, KeyFlags(0xA00108));
}

TEST_F(MacKeyTapTest, tellsTheFilterOfAnotherApplicationInFront) {
    ASSERT_TRUE(tap_.install(filter_));
    tap_.setFrontmost("com.apple.finder");
    deliverKey(kCGEventKeyDown, 9, 0);
    EXPECT_EQ(filter_->front, "com.apple.finder");
}

TEST_F(MacKeyTapTest, writesWhatTheFilterAnswersIntoTheEvent) {
    ASSERT_TRUE(tap_.install(filter_));
    filter_->plan = [](KeyEvent event) {
        return KeyEvent{Key::leftArrow, event.flags | KeyFlags::command, event.type};
    };
    EXPECT_EQ(deliverKey(kCGEventKeyDown, 115, 0x20000), (Delivered{false, 123, 0x120000}));
    EXPECT_EQ(deliverKey(kCGEventKeyUp, 115, 0), (Delivered{false, 123, 0x100000}));
}

TEST_F(MacKeyTapTest, writesTheFlagsAloneWhereOnlyTheyChange) {
    ASSERT_TRUE(tap_.install(filter_));
    filter_->plan = [](KeyEvent event) { return KeyEvent{event.key, KeyFlags::command, event.type}; };
    EXPECT_EQ(deliverKey(kCGEventKeyDown, 8, 0x40000), (Delivered{false, 8, 0x100000}));
}

TEST_F(MacKeyTapTest, leavesAnEventAsItIsThatTheFilterDoesNotChange) {
    ASSERT_TRUE(tap_.install(filter_));
    EXPECT_EQ(deliverKey(kCGEventKeyDown, 48, 0x100000), (Delivered{false, 48, 0x100000}));
}

class MacKeyTapNotices : public MacKeyTapTest,
                         public testing::WithParamInterface<std::pair<CGEventType, KeyTap::Notice>> {};

TEST_P(MacKeyTapNotices, enablesItselfAtOnceAndTellsLater) {
    ASSERT_TRUE(tap_.install(filter_));
    log();
    std::optional<KeyTap::Notice> told;
    tap_.onNotice = [&](KeyTap::Notice notice) { told = notice; };
    mac::disableTaps(GetParam().first);
    EXPECT_EQ(log(), "tap 1: enable\n");
    EXPECT_EQ(told, std::nullopt);
    runQueue();
    EXPECT_EQ(told, GetParam().second);
    EXPECT_TRUE(filter_->seen.empty());
    tap_.enable();
    EXPECT_EQ(log(), "") << "it runs already";
}

INSTANTIATE_TEST_SUITE_P(
    , MacKeyTapNotices,
    testing::Values(std::pair(kCGEventTapDisabledByTimeout, KeyTap::Notice::disabledByTimeout),
                    std::pair(kCGEventTapDisabledByUserInput, KeyTap::Notice::disabledByUserInput)));

TEST_F(MacKeyTapTest, tellsNothingOnceItIsGone) {
    auto tap = std::make_unique<MacKeyTap>(clock_);
    ASSERT_TRUE(tap->install(filter_));
    bool told = false;
    tap->onNotice = [&](KeyTap::Notice) { told = true; };
    mac::disableTaps(kCGEventTapDisabledByTimeout);
    tap.reset();
    runQueue();
    EXPECT_FALSE(told);
}

TEST_F(MacKeyTapTest, replacesTheTapThatIsThere) {
    ASSERT_TRUE(tap_.install(filter_));
    const auto second = std::make_shared<PlannedFilter>();
    ASSERT_TRUE(tap_.install(second));
    EXPECT_EQ(mac::runningTaps(), 1);
    deliverKey(kCGEventKeyDown, 9, 0);
    EXPECT_EQ(second->seen.size(), 1U);
    EXPECT_TRUE(filter_->seen.empty());
}

TEST_F(MacKeyTapTest, letsGoOfKeysThatItHasPressedUnderAnotherNameWhenItIsRemoved) {
    ASSERT_TRUE(tap_.install(filter_));
    filter_->plan = [](KeyEvent event) { return KeyEvent{Key::leftArrow, event.flags, event.type}; };
    deliverKey(kCGEventKeyDown, 115, 0);
    log();
    tap_.remove();
    EXPECT_EQ(log(), "tap 1: disable\n"
                     "tap 1: remove source in kCFRunLoopCommonModes\n"
                     "post up 123, flags of the source, source 1, at location 0\n");
}

TEST_F(MacKeyTapTest, hasNothingToLetGoOfWhenTheKeysAreUp) {
    ASSERT_TRUE(tap_.install(filter_));
    filter_->plan = [](KeyEvent event) { return KeyEvent{Key::leftArrow, event.flags, event.type}; };
    deliverKey(kCGEventKeyDown, 115, 0);
    deliverKey(kCGEventKeyUp, 115, 0);
    log();
    tap_.remove();
    EXPECT_EQ(log(), "tap 1: disable\n"
                     "tap 1: remove source in kCFRunLoopCommonModes\n");
}

TEST_F(MacKeyTapTest, hasAStatus) {
    EXPECT_EQ(tap_.status(), MacKeyTap::Status::resting);
    ASSERT_TRUE(tap_.install(filter_));
    EXPECT_EQ(tap_.status(), MacKeyTap::Status::running);
    tap_.remove();
    EXPECT_EQ(tap_.status(), MacKeyTap::Status::resting);
}

}  // namespace

}  // namespace pimloft::test
