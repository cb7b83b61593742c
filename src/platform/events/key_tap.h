// SPDX-License-Identifier: MIT
#pragma once

#include "base/clock.h"
#include "base/keys.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace pimloft {

enum class KeyEventType { down, up, flagsChanged };

/// One physical key as it was pressed, and as it will be delivered.
struct KeyEvent {
    KeyCode key;
    KeyFlags flags;
    KeyEventType type;

    friend bool operator==(const KeyEvent &, const KeyEvent &) = default;
};

/// Decides one event. Called on the tap's thread, one call at a time.
/// Never waits, allocates or talks to the desktop.
class KeyFilter {
public:
    virtual ~KeyFilter() = default;

    /// What to deliver in place of `event`. `frontmost` is the identifier of the program in front.
    virtual KeyEvent filter(KeyEvent event, std::string_view frontmost, Instant now) noexcept = 0;
};

/// The active tap on the physical keyboards. Main thread.
class KeyTap {
public:
    virtual ~KeyTap() = default;
    enum class Notice { disabledByTimeout, disabledByUserInput };

    /// From return on, every physical key passes `filter`. False: the desktop refuses.
    [[nodiscard]] virtual bool install(std::shared_ptr<KeyFilter> filter) = 0;
    /// After a notice.
    virtual void enable() = 0;
    /// Returns after the last filter call, with every key that the tap pressed up again. Idempotent, at most
    /// 50 ms.
    virtual void remove() = 0;
    /// Pushed on change.
    virtual void setFrontmost(std::string bundleId) = 0;

    /// Main thread, queued.
    std::function<void(Notice)> onNotice;
};

}  // namespace pimloft
