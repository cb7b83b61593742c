// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_guard.h"
#include "platform/events/tap_connection.h"
#include "platform/events/tap_mailbox.h"
#include "platform/events/tap_state.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace pimloft {

/// A running tap: the thread that reads the physical keyboards and types in their place, and the guard beside
/// it. Made and destroyed on the main thread; sleeps while nothing is typed.
class TapThread {
public:
    /// Nothing when the desktop refuses, or no guard can be had. `onLost` is called on the tap's thread when
    /// the connection ends by itself; the tap has ended by then.
    static std::unique_ptr<TapThread> start(std::shared_ptr<KeyFilter> filter, const std::string &guard,
                                            std::function<void()> onLost);
    /// Gives the keyboards back, with every key up that the tap pressed.
    ~TapThread();
    TapThread(const TapThread &) = delete;
    TapThread &operator=(const TapThread &) = delete;

    TapMailbox &mailbox() { return mailbox_; }
    const TapMailbox &mailbox() const { return mailbox_; }

private:
    using Instant = std::chrono::steady_clock::time_point;

    TapThread(std::unique_ptr<TapConnection> connection, std::shared_ptr<KeyFilter> filter,
              const std::string &guard, std::function<void()> onLost);

    void run();
    void wait();
    void readMailbox();
    void readServer();
    void handle(const TapConnection::Event &event);
    void readMap();
    void tendGuard();
    void giveBack();
    void carryOut(TapState::Actions actions);

    std::unique_ptr<TapConnection> connection_;
    std::shared_ptr<KeyFilter> filter_;
    TapState state_;
    KeyGuard guard_;
    std::function<void()> onLost_;
    TapMailbox mailbox_;
    std::vector<TapConnection::Event> events_;
    bool mapIsDue_ = false;
    bool locksAreDue_ = false;
    std::optional<Instant> guardIsDue_;  ///< a new one; the last one is gone
    Instant guardStarted_;
    std::thread thread_;
};

}  // namespace pimloft
