// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/key_rule_index.h"
#include "platform/events/key_tap.h"

#include <functional>
#include <optional>

namespace pimloft {

/// Decides what becomes of each key: the swap of Control and Command, then the rules, and the gesture that
/// ends both. Its settings are changed only while no tap has it installed; everything else happens on the
/// tap's thread.
class KeyRemapFilter final : public KeyFilter {
public:
    /// `onPanic` is called by the event that completes the gesture, on the tap's thread.
    explicit KeyRemapFilter(std::function<void()> onPanic) : onPanic_(std::move(onPanic)) {}

    /// Replaces both, and ends the state after a panic. What is counted of the gesture goes on.
    void set(const KeyMappings &mappings, bool windowsMode);

    KeyEvent filter(KeyEvent event, std::string_view frontmost, Instant now) noexcept override;

    /// How much of the gesture has been seen.
    int rightShiftPressCount() const { return rightShiftPressCount_; }
    std::optional<Instant> lastRightShiftTime() const { return lastRightShiftTime_; }

private:
    bool completesPanicGesture(Instant now);
    std::optional<KeyFlags> swapped(const KeyEvent &event, std::string_view frontmost) const;

    const std::function<void()> onPanic_;
    KeyRuleIndex rules_;
    bool windowsMode_ = false;
    bool hasPanicked_ = false;
    int rightShiftPressCount_ = 0;
    std::optional<Instant> lastRightShiftTime_;
};

}  // namespace pimloft
