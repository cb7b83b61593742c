// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_tap.h"

#include <atomic>

namespace pimloft::test {

/// Control and Command in each other's place, save in a terminal; A becomes B where that is asked for.
class SwapFilter final : public KeyFilter {
public:
    KeyEvent filter(KeyEvent event, std::string_view frontmost, Instant) noexcept override {
        ++asked;
        if (passes || event.type == KeyEventType::flagsChanged || frontmost == "com.apple.Terminal")
            return event;
        constexpr KeyCode a{0};
        constexpr KeyCode b{11};
        if (turnsAIntoB && event.key == a)
            event.key = b;
        constexpr std::uint64_t both = std::uint64_t(KeyFlags::control) | std::uint64_t(KeyFlags::command);
        const std::uint64_t held = std::uint64_t(event.flags) & both;
        if (swaps && held && held != both)
            event.flags = KeyFlags(std::uint64_t(event.flags) ^ both);
        return event;
    }

    std::atomic<bool> swaps{true};
    std::atomic<bool> turnsAIntoB{false};
    std::atomic<bool> passes{false};
    std::atomic<int> asked{0};
};

}  // namespace pimloft::test
