// SPDX-License-Identifier: MIT
#include "keymapper/key_mapper_module.h"

namespace pimloft {

KeyMapperModule::KeyMapperModule(SettingsManager &settings)
    : PimloftModule({.id = QStringLiteral("keymapper"),
                     .name = QStringLiteral("KeyMapper"),
                     .icon = QStringLiteral("keyboard"),
                     .description = tr("One-click Ctrl/Cmd swap, Windows key behavior"),
                     .requiresAccessibility = true},
                    settings) {
}

// The switch is there and kept; what it switches is not part of this version.
void KeyMapperModule::activate() {
}
void KeyMapperModule::deactivate() {
}
std::optional<Page> KeyMapperModule::settingsView() {
    return std::nullopt;
}

}  // namespace pimloft
