// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_tap.h"

#include <atomic>

namespace pimloft::test {

/// Control and Command in each other's place, save in a terminal; A is what it is asked to be.
class SwapFilter final : public KeyFilter {
public:
    KeyEvent filter(KeyEvent event, std::string_view frontmost, Instant) noexcept override {
        ++asked;
        if (passes || event.type == KeyEventType::flagsChanged || frontmost == "com.apple.Terminal")
            return event;
        if (event.key == KeyCode{0})
            event.key = insteadOfA;
        constexpr std::uint64_t both = std::uint64_t(KeyFlags::control) | std::uint64_t(KeyFlags::command);
        const std::uint64_t held = std::uint64_t(event.flags) & both;
        if (swaps && held && held != both)
            event.flags = KeyFlags(std::uint64_t(event.flags) ^ both);
        return event;
    }

    std::atomic<bool> swaps{true};
    std::atomic<KeyCode> insteadOfA{KeyCode{0}};
    std::atomic<bool> passes{false};
    std::atomic<int> asked{0};
};

}  // namespace pimloft::test
