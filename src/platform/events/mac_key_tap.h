// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_tap.h"

#include <QObject>

#include <array>
#include <optional>

namespace pimloft {

class EventTap;

/// Rewrites key events in an active tap before any program sees them. Its filter is called on the main
/// thread, by the main run loop. Main thread.
class MacKeyTap final : public KeyTap {
public:
    explicit MacKeyTap(const Clock &clock);
    ~MacKeyTap() override;

    bool install(std::shared_ptr<KeyFilter> filter) override;
    void enable() override;
    void remove() override;
    void setFrontmost(std::string bundleId) override { frontmost_ = std::move(bundleId); }

    enum class Status {
        resting,
        running,
        ended,  ///< by the system
    };
    Status status() const;

private:
    struct Callback;

    KeyEvent filter(const KeyEvent &event);
    void remember(KeyCode pressed, const KeyEvent &delivered);
    void releaseRewrittenKeys();
    void tell(Notice notice);

    const Clock &clock_;
    std::string frontmost_;
    std::shared_ptr<KeyFilter> filter_;
    std::unique_ptr<EventTap> tap_;
    /// What programs have been told is down instead of the key that is, by the number of that key.
    std::array<std::optional<KeyCode>, 128> rewritten_{};
    QObject notices_;  ///< receives them, and drops those that are still queued at the end
};

}  // namespace pimloft
