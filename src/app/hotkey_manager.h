// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"

#include <QObject>

#include <functional>
#include <map>
#include <utility>

namespace pimloft {

class HotkeyService;

/// Runs actions when the user presses system-wide shortcuts. Main thread.
class HotkeyManager : public QObject {
    Q_OBJECT

public:
    using Action = std::function<void()>;

    static HotkeyManager &shared();
    explicit HotkeyManager(HotkeyService &service);
    ~HotkeyManager() override;

    /// Asks for one combination and answers a fresh id, also when another program owns the combination; then
    /// pressing it runs nothing. The action runs from the event loop, never from within the key event.
    std::uint32_t registerHotkey(KeyCode keyCode, CarbonModifiers modifiers, Action handler);

    /// Forgets the action of `id`. The combination itself stays ours until the process ends.
    void unregister(std::uint32_t id);

    /// Whether the desktop refused this combination when it was last asked for.
    bool isRefused(KeyCode keyCode, CarbonModifiers modifiers) const;

    /// Every combination that was ever asked for, and whether it was granted when last asked.
    using Combination = std::pair<KeyCode, CarbonModifiers>;
    const std::map<Combination, bool> &combinations() const { return combinations_; }

signals:
    /// Another combination is refused, or one no longer is.
    void refusedChanged();

private:
    void note(const Combination &combination, bool granted);
    void pressed(std::uint32_t id);

    HotkeyService &service_;
    std::map<std::uint32_t, Action> registeredHotkeys_;
    std::uint32_t nextID_ = 1;
    std::map<Combination, bool> combinations_;
};

}  // namespace pimloft
