// SPDX-License-Identifier: MIT
#include "quickvolume/quick_volume_module.h"

namespace pimloft {

QuickVolumeModule::QuickVolumeModule(SettingsManager &settings)
    : PimloftModule({.id = QStringLiteral("quickvolume"),
                     .name = QStringLiteral("QuickVolume"),
                     .icon = QStringLiteral("speaker.wave.3"),
                     .description = tr("Per-app volume mixer in your menu bar"),
                     .requiresAccessibility = false},
                    settings) {
}

// The switch is there and kept; what it switches is not part of this version.
void QuickVolumeModule::activate() {
}
void QuickVolumeModule::deactivate() {
}
std::optional<Page> QuickVolumeModule::settingsView() {
    return std::nullopt;
}

}  // namespace pimloft
