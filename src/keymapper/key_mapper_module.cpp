// SPDX-License-Identifier: MIT
#include "keymapper/key_mapper_module.h"

#include "app/accessibility_manager.h"
#include "app/notification_center.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "keymapper/key_mapper_settings.h"
#include "keymapper/key_mapping_store.h"
#include "keymapper/key_remap_engine.h"
#include "keymapper/second_timer.h"
#include "platform/dialogs/dialogs.h"

#include <iterator>
#include <utility>

namespace pimloft {

namespace {

/// In the order in which they are tried: a preset wins over the user's own rule for the same key.
KeyMappings activeRules(const KeyMappingStore &store) {
    KeyMappings list;
    for (const KeyMappingPreset preset : allKeyMappingPresets)
        if (store.isOn(preset))
            std::ranges::move(rules(preset), std::back_inserter(list));
    list.insert(list.end(), store.customMappings().begin(), store.customMappings().end());
    return list;
}

}  // namespace

std::unique_ptr<KeyMapperModule> KeyMapperModule::create() {
    return std::make_unique<KeyMapperModule>(Collaborators{.settings = SettingsManager::shared(),
                                                           .accessibility = AccessibilityManager::shared(),
                                                           .store = KeyMappingStore::shared(),
                                                           .engine = KeyRemapEngine::shared(),
                                                           .notifications = NotificationCenter::shared(),
                                                           .dialogs = Process::current().platform().dialogs},
                                             std::make_unique<QtSecondTimer>());
}

KeyMapperModule::KeyMapperModule(const Collaborators &collaborators,
                                 std::unique_ptr<SecondTimer> confirmationTimer)
    : PimloftModule({.id = QStringLiteral("keymapper"),
                     .name = QStringLiteral("KeyMapper"),
                     .icon = QStringLiteral("keyboard"),
                     .description = tr("One-click Ctrl/Cmd swap, Windows key behavior"),
                     .requiresAccessibility = true},
                    collaborators.settings),
      accessibility_(collaborators.accessibility), store_(collaborators.store), engine_(collaborators.engine),
      dialogs_(collaborators.dialogs),
      pageModel_(std::make_unique<KeyMapperSettings>(*this, store_, dialogs_, std::move(confirmationTimer))) {
    collaborators.notifications.observe(panicDisableNotification, this, [this] { tellOfPanic(); });
}

KeyMapperModule::~KeyMapperModule() = default;

void KeyMapperModule::activate() {
    if (accessibility_.isAccessibilityGranted())
        reloadMappings();
}

void KeyMapperModule::deactivate() {
    engine_.stop();
    setRemappingActive(false);
}

void KeyMapperModule::reloadMappings() {
    if (!isEnabled())
        return;
    engine_.start(activeRules(store_), store_.isOn(KeyMappingPreset::windowsMode));
    setRemappingActive(engine_.isActive());
}

void KeyMapperModule::tellOfPanic() {
    // The engine has stopped itself. What the user has switched on stays on, and comes back with the next
    // change.
    setRemappingActive(false);
    dialogs_.alert({.style = Alert::Style::informational,
                    .message = tr("Key Remapping Disabled"),
                    .informativeText = tr("All key remapping has been disabled via the panic hotkey (triple "
                                          "Right Shift). Re-enable in Pimloft settings."),
                    .button = tr("OK")},
                   this, {});
}

void KeyMapperModule::setRemappingActive(bool active) {
    if (std::exchange(isRemappingActive_, active) != active)
        emit isRemappingActiveChanged();
}

std::optional<Page> KeyMapperModule::settingsView() {
    return Page{QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/KeyMapper/KeyMapperSettings.qml")),
                {{QStringLiteral("settings"), QVariant::fromValue<QObject *>(pageModel_.get())}}};
}

}  // namespace pimloft
