// SPDX-License-Identifier: MIT
#include "platform/panels/mac_panels.h"

#include "panel_session.h"
#include "platform/events/mac_key_poster.h"

#include <QTest>

namespace pimloft::test {

namespace {

const QRectF frame(400, 300, 340, 420);

class MacPopupsTest : public PanelSession {
protected:
    std::unique_ptr<Panel> shown() {
        auto popup = make(PanelKind::popup);
        popup->onDismiss = [this](Dismissal reason) { dismissals_.push_back(reason); };
        EXPECT_TRUE(popup->show(frame));
        return popup;
    }

    std::vector<Dismissal> dismissals_;
};

TEST_F(MacPopupsTest, takeTheKeyboardInFrontOfEverythingWithoutActivating) {
    const auto popup = make(PanelKind::popup);
    log();
    EXPECT_TRUE(popup->show(frame));
    EXPECT_EQ(log(), "panel 1: frame 400 300 340 420\n"
                     "panel 1: order front\n"
                     "panel 1: make key\n"
                     "monitor events 10\n");
    EXPECT_TRUE(mac::panel(1)->isKey);
}

TEST_F(MacPopupsTest, giveTheKeyboardBackAndStayInSight) {
    const auto popup = shown();
    log();
    popup->releaseTyping();
    EXPECT_EQ(log(), "remove monitor\n"
                     "panel 1: order out\n"
                     "panel 1: is key no more\n"
                     "panel 1: order front\n");
    EXPECT_TRUE(mac::panel(1)->isShown);
    EXPECT_FALSE(mac::panel(1)->isKey);
    EXPECT_TRUE(mac::panel(1)->ignoresClicks);
    popup->releaseTyping();
    EXPECT_EQ(log(), "");
    runQueue();
    EXPECT_TRUE(dismissals_.empty()) << "its owner knows";
}

TEST_F(MacPopupsTest, takeClicksAndKeysAgainWhenTheyAreShownAgain) {
    const auto popup = shown();
    popup->releaseTyping();
    EXPECT_TRUE(popup->show(frame));
    EXPECT_FALSE(mac::panel(1)->ignoresClicks);
    EXPECT_TRUE(mac::panel(1)->isKey);
}

TEST_F(MacPopupsTest, goFromTheScreenWithTheKeyboard) {
    const auto popup = shown();
    log();
    popup->orderOut();
    EXPECT_EQ(log(), "remove monitor\npanel 1: order out\npanel 1: is key no more\n");
    runQueue();
    EXPECT_TRUE(dismissals_.empty());
}

TEST_F(MacPopupsTest, reportAClickInAnotherApplicationLaterAndOnce) {
    const auto popup = shown();
    mac::clickElsewhere(1);
    mac::clickElsewhere(2);
    EXPECT_TRUE(dismissals_.empty());
    runQueue();
    EXPECT_THAT(dismissals_, testing::ElementsAre(Dismissal::outsideClick));
}

TEST_F(MacPopupsTest, reportTheRightButtonAndNoOther) {
    const auto popup = shown();
    mac::clickElsewhere(3);
    runQueue();
    EXPECT_TRUE(dismissals_.empty());
    mac::clickElsewhere(2);
    runQueue();
    EXPECT_THAT(dismissals_, testing::ElementsAre(Dismissal::outsideClick));
}

TEST_F(MacPopupsTest, reportThatAnotherApplicationWasActivated) {
    const auto popup = shown();
    mac::activateApplication(5);
    runQueue();
    EXPECT_THAT(dismissals_, testing::ElementsAre(Dismissal::otherWindowActivated));
}

TEST_F(MacPopupsTest, reportALockedScreen) {
    const auto popup = shown();
    mac::leaveSession();
    runQueue();
    popup->orderOut();
    EXPECT_TRUE(popup->show(frame));
    mac::sleepScreens();
    runQueue();
    EXPECT_THAT(dismissals_, testing::ElementsAre(Dismissal::screenLocks, Dismissal::screenLocks));
}

TEST_F(MacPopupsTest, reportThatTheKeyboardWentToAnotherWindow) {
    const auto popup = shown();
    mac::makeAnotherWindowKey();
    runQueue();
    EXPECT_THAT(dismissals_, testing::ElementsAre(Dismissal::typingLost));
}

TEST_F(MacPopupsTest, giveTheKeyboardToTheNewestOfThem) {
    const auto first = shown();
    const auto second = shown();
    runQueue();
    EXPECT_THAT(dismissals_, testing::ElementsAre(Dismissal::typingLost));
    EXPECT_FALSE(mac::panel(1)->isKey);
    EXPECT_TRUE(mac::panel(2)->isKey);
}

TEST_F(MacPopupsTest, reportNothingOfAnEarlierShow) {
    const auto popup = shown();
    mac::clickElsewhere(1);
    popup->orderOut();
    EXPECT_TRUE(popup->show(frame));
    runQueue();
    EXPECT_TRUE(dismissals_.empty());
}

TEST_F(MacPopupsTest, hearNothingWhileTheyHaveNotTheKeyboard) {
    const auto popup = shown();
    popup->releaseTyping();
    mac::clickElsewhere(1);
    mac::activateApplication(5);
    runQueue();
    EXPECT_TRUE(dismissals_.empty());
}

TEST_F(MacPopupsTest, giveTheKeyboardBackBeforeAKeyIsPosted) {
    const auto popup = shown();
    MacKeyPoster poster([this] { panels_.endTyping(); });
    log();
    poster.post(Key::v, KeyFlags::command);
    EXPECT_EQ(log(), "remove monitor\n"
                     "panel 1: order out\n"
                     "panel 1: is key no more\n"
                     "panel 1: order front\n"
                     "post down 9, flags 0x100000, source 1, at location 0\n"
                     "post up 9, flags 0x100000, source 1, at location 0\n");
}

class MacIdlePopupsTest : public MacPopupsTest {
protected:
    MacIdlePopupsTest()
        : idlePanels_(appearance_, std::chrono::milliseconds(40),
                      [this](QWindow &) { return views_.emplace_back(mac::makeView()); }) {}

    MacPanels idlePanels_;
};

TEST_F(MacIdlePopupsTest, reportThatNobodyTypes) {
    auto content = std::make_unique<QRasterWindow>();
    const auto popup = idlePanels_.create(PanelKind::popup, std::move(content));
    popup->onDismiss = [this](Dismissal reason) { dismissals_.push_back(reason); };
    ASSERT_TRUE(popup->show(frame));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !dismissals_.empty(); }));
    EXPECT_THAT(dismissals_, testing::ElementsAre(Dismissal::idle));
}

}  // namespace

}  // namespace pimloft::test
