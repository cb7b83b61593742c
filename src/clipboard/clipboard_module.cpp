// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_module.h"

namespace pimloft {

ClipboardModule::ClipboardModule(SettingsManager &settings)
    : PimloftModule({.id = QStringLiteral("clipboardplus"),
                     .name = QStringLiteral("ClipboardPlus"),
                     .icon = QStringLiteral("doc.on.clipboard"),
                     .description = tr("Clipboard history with Cmd+Shift+V popup"),
                     .requiresAccessibility = false},
                    settings) {
}

// The switch is there and kept; what it switches is not part of this version.
void ClipboardModule::activate() {
}
void ClipboardModule::deactivate() {
}
std::optional<Page> ClipboardModule::settingsView() {
    return std::nullopt;
}

}  // namespace pimloft
