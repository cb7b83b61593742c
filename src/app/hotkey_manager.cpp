// SPDX-License-Identifier: MIT
#include "app/hotkey_manager.h"

#include "app/process.h"
#include "platform/hotkeys/hotkeys.h"

#include <limits>

namespace pimloft {

HotkeyManager &HotkeyManager::shared() {
    return Process::current().shared<HotkeyManager>(
        [](Process &process) { return std::make_unique<HotkeyManager>(process.platform().hotkeys); });
}

HotkeyManager::HotkeyManager(HotkeyService &service) : service_(service) {
    service_.onPressed = [this](HotkeyId id) { pressed(std::uint32_t(id)); };
}

HotkeyManager::~HotkeyManager() {
    service_.onPressed = nullptr;
}

std::uint32_t HotkeyManager::registerHotkey(KeyCode keyCode, CarbonModifiers modifiers, Action handler) {
    if (nextID_ == std::numeric_limits<std::uint32_t>::max())
        qFatal("Hotkey ids are used up");
    const std::uint32_t id = nextID_++;
    const bool granted = service_.grant(keyCode, modifiers, HotkeyId(id));
    if (granted)
        registeredHotkeys_.emplace(id, std::move(handler));
    note({keyCode, modifiers}, granted);
    return id;
}

void HotkeyManager::unregister(std::uint32_t id) {
    registeredHotkeys_.erase(id);
}

bool HotkeyManager::isRefused(KeyCode keyCode, CarbonModifiers modifiers) const {
    const auto found = combinations_.find({keyCode, modifiers});
    return found != combinations_.end() && !found->second;
}

void HotkeyManager::note(const Combination &combination, bool granted) {
    const bool changes = isRefused(combination.first, combination.second) == granted;
    combinations_[combination] = granted;
    if (changes)
        emit refusedChanged();
}

void HotkeyManager::pressed(std::uint32_t id) {
    const auto found = registeredHotkeys_.find(id);
    if (found == registeredHotkeys_.end())
        return;
    QMetaObject::invokeMethod(this, found->second, Qt::QueuedConnection);
}

}  // namespace pimloft
