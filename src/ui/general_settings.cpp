// SPDX-License-Identifier: MIT
#include "ui/general_settings.h"

#include "app/accessibility_manager.h"
#include "app/bundle_info.h"
#include "app/page.h"
#include "platform/workspace/workspace.h"

namespace pimloft {

GeneralSettings::GeneralSettings(SettingsManager &settings, AccessibilityManager &accessibility,
                                 UpdateManager &updateManager, WorkspaceService &workspace)
    : settings_(settings), accessibility_(accessibility), updateManager_(updateManager),
      workspace_(workspace) {
}

Page GeneralSettings::page() {
    return {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/GeneralSettingsView.qml")),
            {{QStringLiteral("model"), QVariant::fromValue(this)}}};
}

void GeneralSettings::openAccessibilitySettings() {
    workspace_.open(accessibilitySettings());
}

QString GeneralSettings::appVersion() const {
    return pimloft::appVersion();
}

QString GeneralSettings::buildNumber() const {
    return pimloft::buildNumber();
}

}  // namespace pimloft
