// SPDX-License-Identifier: MIT
#include "app/app_state.h"

#include "app/accessibility_manager.h"
#include "app/process.h"
#include "clipboard/clipboard_module.h"
#include "finderfix/finder_fix_module.h"
#include "keymapper/key_mapper_module.h"
#include "quickvolume/quick_volume_module.h"
#include "windowsnap/window_snap_module.h"

namespace pimloft {

namespace {

AppState::Modules makeModules() {
    return {.windowSnap = WindowSnapModule::create(),
            .clipboardPlus = ClipboardModule::create(),
            .finderFix = FinderFixModule::create(),
            .keyMapper = KeyMapperModule::create(),
            .quickVolume = QuickVolumeModule::create()};
}

}  // namespace

AppState &AppState::shared() {
    return Process::current().shared<AppState>(
        [](Process &) { return std::make_unique<AppState>(makeModules(), AccessibilityManager::shared()); });
}

AppState::AppState(Modules modules, AccessibilityManager &accessibility)
    : modules_(std::move(modules)), accessibility_(accessibility) {
    // Queued: a view that redraws the icon then reads what the key mapper has become.
    connect(keyMapper(), &PimloftModule::isEnabledChanged, this, &AppState::changed, Qt::QueuedConnection);
    connect(keyMapper(), &KeyMapperModule::isRemappingActiveChanged, this, &AppState::changed,
            Qt::QueuedConnection);
}

AppState::~AppState() = default;

QList<PimloftModule *> AppState::allModules() const {
    return {windowSnap(), clipboardPlus(), finderFix(), keyMapper(), quickVolume()};
}

void AppState::activateEnabledModules() {
    for (PimloftModule *module : allModules()) {
        const bool lacksPermission =
            module->requiresAccessibility() && !accessibility_.isAccessibilityGranted();
        if (module->isEnabled() && !lacksPermission)
            module->activate();
    }
}

void AppState::deactivateModules() {
    for (PimloftModule *module : allModules())
        module->deactivate();
}

QString AppState::menuBarIcon() const {
    const bool remapping = keyMapper()->isEnabled() && keyMapper()->isRemappingActive();
    return remapping ? QStringLiteral("square.on.square.badge.person.crop")
                     : QStringLiteral("square.on.square");
}

}  // namespace pimloft
