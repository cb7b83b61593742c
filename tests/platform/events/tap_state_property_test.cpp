// SPDX-License-Identifier: MIT
// Random hands on two keyboards, with filters that change, locks, posts, layouts and taps that come and go.
#include "platform/events/tap_state.h"

#include "platform/events/tap_table.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace pimloft {
namespace {

using namespace test;

/// What a server makes of keys: which are down as the programs see it, and whether caps lock is on.
class Server {
public:
    void key(TapKey key, bool down) {
        if (down && !down_.test(key) && key == xKey(KEY_CAPSLOCK))
            caps_ = !caps_;
        if (down && down_.test(key))
            pressedTwice_ = true;
        down_.set(key, down);
    }
    void carryOut(TapState::Actions actions) {
        for (const TapAction &action : actions)
            key(action.key, action.down);
    }
    const TapState::Keys &down() const { return down_; }
    bool caps() const { return caps_; }
    bool pressedTwice() const { return pressedTwice_; }

private:
    TapState::Keys down_;
    bool caps_ = false;
    bool pressedTwice_ = false;
};

/// A filter that answers something, the same for the same event until it is changed.
struct ChangingFilter final : KeyFilter {
    unsigned mood = 0;

    KeyEvent filter(KeyEvent event, std::string_view, Instant) noexcept override {
        static constexpr KeyCode targets[] = {KeyCode{0},   KeyCode{11},  KeyCode{59},  KeyCode{123},
                                              KeyCode{124}, KeyCode{115}, KeyCode{500}, KeyCode{55}};
        const unsigned chance = (unsigned(event.key) * 31 + mood * 17) % 11;
        if (mood % 3 == 1)
            return swapped(event);
        if (mood % 3 == 2 && chance < 8) {
            event.key = targets[chance];
            event.flags = event.flags ^ TapKeys::flags[mood / 3 % 4];
        }
        return event;
    }
};

std::string names(const TapState::Keys &keys) {
    std::string names;
    for (std::size_t key = 0; key < keys.size(); ++key)
        if (keys.test(key))
            names += keyName(TapKey(key)) + ' ';
    return names;
}

class Hands {
public:
    explicit Hands(unsigned seed) : random_(seed) {}

    void act() {
        switch (roll(40)) {
        case 0:
            filter_.mood = roll(64);
            return;
        case 1:
            tap_ ? stop() : start();
            return;
        case 2:
            if (tap_)
                server_.carryOut(tap_->setPassing(roll(2)));
            return;
        case 3:
            post();
            return;
        case 4:
            unplug(roll(2));
            return;
        case 5:
            changeMap();
            return;
        default:
            touch();
        }
    }

    void letGoOfEverything() {
        for (unsigned source = 0; source < 2; ++source)
            for (std::size_t key = 0; key < 256; ++key)
                if (held_[source].test(key))
                    move(source, TapKey(key), false);
        EXPECT_EQ(names(server_.down()), "");
        EXPECT_EQ(server_.caps(), caps_) << "caps lock differs from that of the keyboard";
        EXPECT_FALSE(server_.pressedTwice());
        if (tap_) {
            EXPECT_EQ(text(tap_->stop()), "");
        }
    }

private:
    unsigned roll(unsigned sides) { return unsigned(random_() % sides); }

    void start() {
        tap_ = std::make_unique<TapState>(keys_, filter_);
        for (unsigned source = 0; source < 2; ++source)
            tap_->add(source, {held_[source], server_.down(), {}});
    }

    void stop() {
        server_.carryOut(tap_->stop());
        tap_.reset();
    }

    void post() {
        if (!tap_)
            return;
        const TapKey modifiers[] = {xKey(KEY_LEFTCTRL), xKey(KEY_LEFTSHIFT)};
        server_.carryOut(tap_->post(xKey(KEY_V), std::span(modifiers, roll(3))));
    }

    void unplug(unsigned source) {
        if (tap_)
            server_.carryOut(tap_->remove(TapState::Source(source)));
        else
            for (std::size_t key = 0; key < 256; ++key)
                if (held_[source].test(key))
                    server_.key(TapKey(key), false);
        held_[source].reset();
    }

    /// Control and caps lock change places, but not under a finger: caps lock is counted by its key.
    void changeMap() {
        if ((held_[0] | held_[1]).any() || server_.down().any())
            return;
        for (const int key : {KEY_LEFTALT, KEY_RIGHTALT}) {
            TapKeys::Key &alt = keys_.keys[xKey(key)];
            alt.flag = alt.flag == KeyFlags::option ? KeyFlags::none : KeyFlags::option;
        }
        if (tap_)
            server_.carryOut(tap_->setKeys(keys_));
    }

    void touch() {
        static constexpr int keys[] = {KEY_LEFTCTRL,   KEY_RIGHTCTRL, KEY_LEFTMETA, KEY_LEFTSHIFT,
                                       KEY_RIGHTSHIFT, KEY_LEFTALT,   KEY_RIGHTALT, KEY_CAPSLOCK,
                                       KEY_A,          KEY_B,         KEY_C,        KEY_V,
                                       KEY_HOME,       KEY_LEFT,      KEY_CALC,     KEY_RIGHTMETA};
        const unsigned source = roll(2);
        const TapKey key = xKey(keys[roll(std::size(keys))]);
        // The lock of two keyboards at once is the server's affair.
        if (key == xKey(KEY_CAPSLOCK) && held_[1 - source].test(key))
            return;
        move(source, key, !held_[source].test(key));
    }

    void move(unsigned source, TapKey key, bool down) {
        held_[source].set(key, down);
        if (down && key == xKey(KEY_CAPSLOCK))
            caps_ = !caps_;
        if (tap_)
            server_.carryOut(tap_->key({TapState::Source(source), key, down}, {}));
        else if (!down || !server_.down().test(key))
            server_.key(key, down);
    }

    std::minstd_rand random_;
    TapKeys keys_ = americanKeys();
    ChangingFilter filter_;
    Server server_;
    TapState::Keys held_[2];
    bool caps_ = false;
    std::unique_ptr<TapState> tap_;
};

/// Each of ten thousand lives; all of them together would take a sanitizer minutes.
class TapStateProperty : public testing::TestWithParam<unsigned> {};

TEST_P(TapStateProperty, nothingIsDownOnceTheUserHasLetGoWhateverHappened) {
    constexpr unsigned lives = 10000;
    for (unsigned seed = GetParam() * lives + 1; seed <= (GetParam() + 1) * lives; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Hands hands(seed);
        for (int step = 0; step < 60; ++step)
            hands.act();
        hands.letGoOfEverything();
        if (HasFailure())
            return;
    }
}
INSTANTIATE_TEST_SUITE_P(Users, TapStateProperty, testing::Range(0U, 10U));

}  // namespace
}  // namespace pimloft
