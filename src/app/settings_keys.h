// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The names under which preferences are stored. They are part of the users' data: never rename one.
namespace pimloft::SettingsKeys {

inline const QString hasCompletedOnboarding = QStringLiteral("pimloft.general.hasCompletedOnboarding");
inline const QString launchAtLogin = QStringLiteral("pimloft.general.launchAtLogin");
/// Registered for compatibility; the program never has a Dock icon.
inline const QString showInDock = QStringLiteral("pimloft.general.showInDock");
inline const QString lastSeenVersion = QStringLiteral("pimloft.general.lastSeenVersion");
inline const QString snapSensitivity = QStringLiteral("pimloft.windowsnap.snapSensitivity");
inline const QString clipboardMaxItems = QStringLiteral("pimloft.clipboardplus.maxItems");
inline const QString clipboardExcludedApps = QStringLiteral("pimloft.clipboardplus.excludedApps");
/// Followed by a preset's raw value.
inline const QString keymapperPreset = QStringLiteral("pimloft.keymapper.preset.");
inline const QString lastUpdateCheck = QStringLiteral("pimloft.updates.lastCheck");

inline QString moduleEnabled(const QString &id) {
    return QStringLiteral("pimloft.") + id + QStringLiteral(".enabled");
}

}  // namespace pimloft::SettingsKeys
