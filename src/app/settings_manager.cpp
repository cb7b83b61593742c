// SPDX-License-Identifier: MIT
#include "app/settings_manager.h"

#include "app/process.h"
#include "app/settings_keys.h"
#include "base/console.h"
#include "platform/loginitem/login_item.h"
#include "platform/preferences/preferences.h"

namespace pimloft {

SettingsManager &SettingsManager::shared() {
    return Process::current().shared<SettingsManager>([](Process &process) {
        return std::make_unique<SettingsManager>(process.platform().preferences,
                                                 process.platform().loginItem);
    });
}

SettingsManager::SettingsManager(PreferencesService &defaults, LoginItemService &loginItem)
    : defaults_(defaults), loginItem_(loginItem) {
    registerDefaults();
}

void SettingsManager::registerDefaults() {
    defaults_.registerDefaults({
        {SettingsKeys::hasCompletedOnboarding, false},
        {SettingsKeys::launchAtLogin, false},
        {SettingsKeys::showInDock, false},
        {SettingsKeys::moduleEnabled(QStringLiteral("windowsnap")), true},
        {SettingsKeys::moduleEnabled(QStringLiteral("clipboardplus")), true},
        {SettingsKeys::moduleEnabled(QStringLiteral("finderfix")), true},
        {SettingsKeys::moduleEnabled(QStringLiteral("keymapper")), true},
        {SettingsKeys::moduleEnabled(QStringLiteral("quickvolume")), true},
        {SettingsKeys::snapSensitivity, 10.0},
        {SettingsKeys::clipboardMaxItems, 50},
    });
}

bool SettingsManager::isModuleEnabled(const QString &id) const {
    const QVariant stored = defaults_.object(SettingsKeys::moduleEnabled(id));
    return !stored.isValid() || stored.toBool();
}

void SettingsManager::setModuleEnabled(const QString &id, bool enabled) {
    defaults_.set(SettingsKeys::moduleEnabled(id), enabled);
}

bool SettingsManager::launchAtLogin() const {
    return defaults_.flag(SettingsKeys::launchAtLogin);
}

void SettingsManager::setLaunchAtLogin(bool enabled) {
    const bool changes = launchAtLogin() != enabled;
    defaults_.set(SettingsKeys::launchAtLogin, enabled);
    updateLaunchAtLogin(enabled);
    if (changes)
        emit launchAtLoginChanged();
}

void SettingsManager::updateLaunchAtLogin(bool enabled) {
    const auto failure =
        enabled ? loginItem_.registerMainApplication() : loginItem_.unregisterMainApplication();
    if (failure)
        printLine(QStringLiteral("Failed to update launch at login: ") + *failure);
}

}  // namespace pimloft
