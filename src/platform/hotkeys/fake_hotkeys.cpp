// SPDX-License-Identifier: MIT
#include "platform/hotkeys/fake_hotkeys.h"

#include <gtest/gtest.h>

namespace pimloft {

bool FakeHotkeys::grant(KeyCode key, CarbonModifiers modifiers, HotkeyId id) {
    EXPECT_TRUE(used_.insert(id).second) << "hotkey id " << std::uint32_t(id) << " used twice";
    const bool granted = !taken_.contains({key, modifiers});
    if (granted)
        granted_[{key, modifiers}] = id;
    log_.line(QStringLiteral("%1 key %2 with modifiers 0x%3 as %4")
                  .arg(granted ? QStringLiteral("grant") : QStringLiteral("refuse"))
                  .arg(std::uint16_t(key))
                  .arg(std::uint32_t(modifiers), 0, 16)
                  .arg(std::uint32_t(id)));
    return granted;
}

void FakeHotkeys::press(KeyCode key, CarbonModifiers modifiers) {
    const auto found = granted_.find({key, modifiers});
    if (found != granted_.end() && onPressed)
        onPressed(found->second);
}

}  // namespace pimloft
