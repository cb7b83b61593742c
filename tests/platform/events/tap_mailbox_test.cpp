// SPDX-License-Identifier: MIT
#include "platform/events/tap_mailbox.h"

#include <gtest/gtest.h>

#include <poll.h>

#include <thread>

namespace pimloft {
namespace {

/// The other end: reads as the tap does until it is stopped, and writes down what it was told.
class Reader {
public:
    explicit Reader(TapMailbox &mailbox) : mailbox_(mailbox), thread_([this] { run(); }) {}
    ~Reader() { join(); }
    void join() {
        mailbox_.stop();
        if (thread_.joinable())
            thread_.join();
    }

    std::vector<int> posts;
    std::string frontmost;

private:
    void run() {
        while (!mailbox_.isStopped()) {
            pollfd source{mailbox_.wakeUp(), POLLIN, 0};
            poll(&source, 1, -1);
            mailbox_.clearWakeUp();
            if (auto told = mailbox_.takeFrontmost())
                frontmost = *told;
            mailbox_.takePost([this](const TapMailbox::Post &post) {
                posts.push_back(post.key);
                KeySet held;
                held.set(post.key);
                mailbox_.publishHeld(held);
            });
        }
        mailbox_.close();
    }

    TapMailbox &mailbox_;
    std::thread thread_;
};

TEST(TapMailbox, aPostIsCarriedOutWhenItReturns) {
    TapMailbox mailbox;
    Reader reader(mailbox);
    for (int key = 8; key < 255; ++key) {
        mailbox.setFrontmost("program " + std::to_string(key));
        EXPECT_TRUE(mailbox.post({xcb_keycode_t(key), {}}));
        ASSERT_TRUE(mailbox.held());
        EXPECT_TRUE(mailbox.held()->test(std::size_t(key)));
    }
    reader.join();
    EXPECT_EQ(reader.posts.size(), 247u);
    EXPECT_EQ(reader.frontmost, "program 254");
}

TEST(TapMailbox, aPostToATapThatHasEndedIsRefused) {
    TapMailbox mailbox;
    Reader(mailbox).join();
    EXPECT_FALSE(mailbox.post({38, {}}));
    EXPECT_FALSE(mailbox.held());
}

TEST(TapMailbox, aPostToATapThatEndsMeanwhileIsRefused) {
    TapMailbox mailbox;
    std::thread tap([&] {
        pollfd source{mailbox.wakeUp(), POLLIN, 0};
        poll(&source, 1, -1);
        mailbox.close();
    });
    EXPECT_FALSE(mailbox.post({38, {}}));
    tap.join();
}

TEST(TapMailbox, whatNobodyReadIsGivenUp) {
    TapMailbox mailbox;
    EXPECT_FALSE(mailbox.post({38, {}}));
    mailbox.takePost([](const TapMailbox::Post &) { FAIL() << "a post that was given up"; });
}

TEST(TapMailbox, onlyTheLastProgramInFrontCounts) {
    TapMailbox mailbox;
    EXPECT_EQ(mailbox.takeFrontmost(), nullptr);
    mailbox.setFrontmost("one");
    mailbox.setFrontmost("two");
    EXPECT_EQ(*mailbox.takeFrontmost(), "two");
    EXPECT_EQ(mailbox.takeFrontmost(), nullptr);
    mailbox.setFrontmost("left behind");
}

TEST(TapMailbox, everyKeyThatIsHeldIsTold) {
    TapMailbox mailbox;
    KeySet held;
    for (std::size_t key : {0, 63, 64, 127, 128, 191, 192, 255})
        held.set(key);
    mailbox.publishHeld(held);
    EXPECT_EQ(mailbox.held(), held);
}

}  // namespace
}  // namespace pimloft
