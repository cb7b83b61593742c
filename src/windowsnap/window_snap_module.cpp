// SPDX-License-Identifier: MIT
#include "windowsnap/window_snap_module.h"

#include "app/accessibility_manager.h"
#include "app/hotkey_manager.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "platform/panels/panels.h"
#include "windowsnap/window_snap_engine.h"

namespace pimloft {

std::unique_ptr<WindowSnapModule> WindowSnapModule::create() {
    return std::make_unique<WindowSnapModule>(SettingsManager::shared(), AccessibilityManager::shared(),
                                              HotkeyManager::shared(), WindowSnapEngine::shared(),
                                              Process::current().platform().panels);
}

WindowSnapModule::WindowSnapModule(SettingsManager &settings, AccessibilityManager &accessibility,
                                   HotkeyManager &hotkeys, WindowSnapEngine &engine,
                                   const PanelService &panels)
    : PimloftModule({.id = QStringLiteral("windowsnap"),
                     .name = QStringLiteral("WindowSnap"),
                     .icon = QStringLiteral("rectangle.split.2x1"),
                     .description = tr("Windows 11-style window snapping with visual layout picker"),
                     .requiresAccessibility = true},
                    settings),
      accessibility_(accessibility), engine_(engine), layoutPickerController_(panels),
      pageModel_(settings, hotkeys) {
}

void WindowSnapModule::activate() {
    if (accessibility_.isAccessibilityGranted())
        engine_.start();
}

void WindowSnapModule::deactivate() {
    engine_.stop();
    layoutPickerController_.hide();
}

std::optional<Page> WindowSnapModule::settingsView() {
    return Page{QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/WindowSnap/WindowSnapSettings.qml")),
                {{QStringLiteral("settings"), QVariant::fromValue<QObject *>(&pageModel_)}}};
}

}  // namespace pimloft
