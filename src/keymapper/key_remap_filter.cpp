// SPDX-License-Identifier: MIT
#include "keymapper/key_remap_filter.h"

#include <algorithm>
#include <array>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

/// Keys whose shortcuts with Command are the desktop's own.
constexpr std::array protectedShortcuts{Key::tab, Key::space, Key::q};

/// Where Control has a meaning that must not move.
constexpr std::array<std::string_view, 4> terminalIds{
    "com.apple.Terminal",
    "com.googlecode.iterm2",
    "net.kovidgoyal.kitty",
    "com.mitchellh.ghostty",
};

constexpr auto longestGap = 1s;  ///< between two events of the gesture, exclusive
constexpr int gestureLength = 3;

template <typename Range, typename Value>
bool has(const Range &range, const Value &value) {
    return std::find(range.begin(), range.end(), value) != range.end();
}

}  // namespace

void KeyRemapFilter::set(const KeyMappings &mappings, bool windowsMode) {
    rules_ = KeyRuleIndex(mappings);
    windowsMode_ = windowsMode;
    hasPanicked_ = false;
}

KeyEvent KeyRemapFilter::filter(KeyEvent event, std::string_view frontmost, Instant now) noexcept {
    if (hasPanicked_)
        return event;
    if (event.type == KeyEventType::flagsChanged) {
        // Both ways count, down and up: press, release, press is enough.
        if (event.key == Key::rightShift && completesPanicGesture(now)) {
            hasPanicked_ = true;
            onPanic_();
        }
        return event;
    }
    if (const auto flags = swapped(event, frontmost))
        return {event.key, *flags, event.type};
    if (const KeyRuleIndex::Rewrite *rule = rules_.find(event.key, event.flags, frontmost))
        return {rule->toKeyCode, (event.flags - rule->removed) | rule->added, event.type};
    return event;
}

std::optional<KeyFlags> KeyRemapFilter::swapped(const KeyEvent &event, std::string_view frontmost) const {
    const bool control = contains(event.flags, KeyFlags::control);
    const bool command = contains(event.flags, KeyFlags::command);
    if (!windowsMode_ || control == command || has(terminalIds, frontmost))
        return std::nullopt;
    if (control)
        return (event.flags - KeyFlags::control) | KeyFlags::command;
    if (has(protectedShortcuts, event.key))
        return std::nullopt;
    return (event.flags - KeyFlags::command) | KeyFlags::control;
}

bool KeyRemapFilter::completesPanicGesture(Instant now) {
    const bool continues = lastRightShiftTime_ && now - *lastRightShiftTime_ < longestGap;
    rightShiftPressCount_ = continues ? rightShiftPressCount_ + 1 : 1;
    lastRightShiftTime_ = now;
    if (rightShiftPressCount_ < gestureLength)
        return false;
    rightShiftPressCount_ = 0;
    return true;
}

}  // namespace pimloft
