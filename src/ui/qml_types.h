// SPDX-License-Identifier: MIT
#pragma once

// Makes the program's observable objects known to the pages by their types, so that they are checked when
// they are built. None can be made by a page.

#include "app/accessibility_manager.h"
#include "app/app_state.h"
#include "app/onboarding.h"
#include "app/settings_manager.h"
#include "app/whats_new.h"
#include "clipboard/clipboard_module.h"
#include "finderfix/finder_fix_module.h"
#include "keymapper/key_mapper_module.h"
#include "quickvolume/quick_volume_module.h"
#include "ui/general_settings.h"
#include "ui/popover_controller.h"
#include "ui/settings_window.h"
#include "updates/update_manager.h"
#include "windowsnap/window_snap_module.h"

#include <QtQml/qqml.h>

namespace pimloft {

struct AccessibilityManagerType {
    Q_GADGET
    QML_FOREIGN(pimloft::AccessibilityManager)
    QML_NAMED_ELEMENT(AccessibilityManager)
    QML_UNCREATABLE("made by the program")
};

struct AppStateType {
    Q_GADGET
    QML_FOREIGN(pimloft::AppState)
    QML_NAMED_ELEMENT(AppState)
    QML_UNCREATABLE("made by the program")
};

struct SettingsManagerType {
    Q_GADGET
    QML_FOREIGN(pimloft::SettingsManager)
    QML_NAMED_ELEMENT(SettingsManager)
    QML_UNCREATABLE("made by the program")
};

struct GeneralSettingsType {
    Q_GADGET
    QML_FOREIGN(pimloft::GeneralSettings)
    QML_NAMED_ELEMENT(GeneralSettings)
    QML_UNCREATABLE("made by the program")
};

struct PopoverControllerType {
    Q_GADGET
    QML_FOREIGN(pimloft::PopoverController)
    QML_NAMED_ELEMENT(PopoverController)
    QML_UNCREATABLE("made by the program")
};

struct SettingsWindowType {
    Q_GADGET
    QML_FOREIGN(pimloft::SettingsWindow)
    QML_NAMED_ELEMENT(SettingsWindow)
    QML_UNCREATABLE("made by the program")
};

struct OnboardingType {
    Q_GADGET
    QML_FOREIGN(pimloft::Onboarding)
    QML_NAMED_ELEMENT(Onboarding)
    QML_UNCREATABLE("made by the program")
};

struct PermissionRequestType {
    Q_GADGET
    QML_FOREIGN(pimloft::PermissionRequest)
    QML_NAMED_ELEMENT(PermissionRequest)
    QML_UNCREATABLE("made by the program")
};

struct UpdateManagerType {
    Q_GADGET
    QML_FOREIGN(pimloft::UpdateManager)
    QML_NAMED_ELEMENT(UpdateManager)
    QML_UNCREATABLE("made by the program")
};

struct WhatsNewType {
    Q_GADGET
    QML_FOREIGN(pimloft::WhatsNew)
    QML_NAMED_ELEMENT(WhatsNew)
    QML_UNCREATABLE("made by the program")
};

struct PimloftModuleType {
    Q_GADGET
    QML_FOREIGN(pimloft::PimloftModule)
    QML_NAMED_ELEMENT(PimloftModule)
    QML_UNCREATABLE("made by the program")
};

struct ClipboardModuleType {
    Q_GADGET
    QML_FOREIGN(pimloft::ClipboardModule)
    QML_NAMED_ELEMENT(ClipboardModule)
    QML_UNCREATABLE("made by the program")
};

struct FinderFixModuleType {
    Q_GADGET
    QML_FOREIGN(pimloft::FinderFixModule)
    QML_NAMED_ELEMENT(FinderFixModule)
    QML_UNCREATABLE("made by the program")
};

struct KeyMapperModuleType {
    Q_GADGET
    QML_FOREIGN(pimloft::KeyMapperModule)
    QML_NAMED_ELEMENT(KeyMapperModule)
    QML_UNCREATABLE("made by the program")
};

struct QuickVolumeModuleType {
    Q_GADGET
    QML_FOREIGN(pimloft::QuickVolumeModule)
    QML_NAMED_ELEMENT(QuickVolumeModule)
    QML_UNCREATABLE("made by the program")
};

struct WindowSnapModuleType {
    Q_GADGET
    QML_FOREIGN(pimloft::WindowSnapModule)
    QML_NAMED_ELEMENT(WindowSnapModule)
    QML_UNCREATABLE("made by the program")
};

}  // namespace pimloft
