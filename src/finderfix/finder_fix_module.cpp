// SPDX-License-Identifier: MIT
#include "finderfix/finder_fix_module.h"

namespace pimloft {

FinderFixModule::FinderFixModule(SettingsManager &settings)
    : PimloftModule({.id = QStringLiteral("finderfix"),
                     .name = QStringLiteral("FinderFix"),
                     .icon = QStringLiteral("folder.badge.gearshape"),
                     .description = tr("Cmd+X cut-paste for files, New File in Finder"),
                     .requiresAccessibility = true},
                    settings) {
}

// The switch is there and kept; what it switches is not part of this version.
void FinderFixModule::activate() {
}
void FinderFixModule::deactivate() {
}
std::optional<Page> FinderFixModule::settingsView() {
    return std::nullopt;
}

}  // namespace pimloft
