// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/key_devices.h"

#include <array>
#include <atomic>
#include <memory>
#include <optional>
#include <semaphore>
#include <string>
#include <vector>

namespace pimloft {

/// What the main thread and the tap's thread have to tell each other. Nothing here makes the tap's thread
/// wait for the main one, wherever that was stopped.
class TapMailbox {
public:
    /// A keystroke on behalf of the program.
    struct Post {
        xcb_keycode_t key;
        std::vector<xcb_keycode_t> modifiers;
    };

    TapMailbox();
    ~TapMailbox();
    TapMailbox(const TapMailbox &) = delete;
    TapMailbox &operator=(const TapMailbox &) = delete;

    // Main thread:
    void stop();
    void setPassing(bool passing);
    /// Is read with the next key.
    void setFrontmost(std::string bundleId);
    /// Returns when it was carried out. False when the tap has ended, or does not get to it within a second.
    bool post(const Post &post);
    /// The keys under the user's fingers as they were delivered; nothing when the tap has ended.
    std::optional<KeySet> held() const;

    // The tap's thread:
    /// Becomes readable when something is to be read at once.
    int wakeUp() const { return wakeUp_; }
    void clearWakeUp();
    bool isStopped() const { return stopped_.load(std::memory_order_acquire); }
    bool isPassing() const { return passing_.load(std::memory_order_acquire); }
    std::unique_ptr<std::string> takeFrontmost();
    /// Hands the keystroke that waits to `carryOut`, if there is one.
    template <typename CarryOut>
    void takePost(CarryOut carryOut) {
        if (Letter *letter = letter_.exchange(nullptr)) {
            carryOut(letter->post);
            finish(*letter, true);
        }
    }
    void publishHeld(const KeySet &held);
    /// The tap has ended: nobody reads any more.
    void close();

private:
    struct Letter {
        const Post &post;
        std::binary_semaphore read{0};
        bool done = false;
    };
    void wake();
    static void finish(Letter &letter, bool done);

    int wakeUp_;
    std::atomic<bool> stopped_{false};
    std::atomic<bool> passing_{false};
    std::atomic<bool> closed_{false};
    std::atomic<std::string *> frontmost_{nullptr};
    std::atomic<Letter *> letter_{nullptr};
    std::array<std::atomic<std::uint64_t>, 4> held_{};
};

}  // namespace pimloft
