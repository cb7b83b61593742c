// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake_log.h"
#include "platform/hotkeys/hotkeys.h"

#include <map>
#include <set>
#include <utility>

namespace pimloft {

/// A keyboard whose shortcuts a test presses, on a desktop where other programs may own some.
class FakeHotkeys final : public HotkeyService {
public:
    explicit FakeHotkeys(FakeLog &log) : log_(log) {}

    bool grant(KeyCode key, CarbonModifiers modifiers, HotkeyId id) override;

    /// Another program owns this combination.
    void take(KeyCode key, CarbonModifiers modifiers) { taken_.insert({key, modifiers}); }
    /// It lets the combination go.
    void release(KeyCode key, CarbonModifiers modifiers) { taken_.erase({key, modifiers}); }
    void press(KeyCode key, CarbonModifiers modifiers);

private:
    using Combination = std::pair<KeyCode, CarbonModifiers>;
    FakeLog &log_;
    std::set<Combination> taken_;
    std::map<Combination, HotkeyId> granted_;
    std::set<HotkeyId> used_;
};

}  // namespace pimloft
