// SPDX-License-Identifier: MIT
#pragma once

#include "app/pimloft_module.h"
#include "windowsnap/layout_picker_controller.h"
#include "windowsnap/window_snap_settings.h"

namespace pimloft {

class AccessibilityManager;
class WindowSnapEngine;

/// Window snapping as the rest of the program sees it. Main thread.
class WindowSnapModule final : public PimloftModule {
    Q_OBJECT

public:
    /// On the shared instances.
    static std::unique_ptr<WindowSnapModule> create();
    WindowSnapModule(SettingsManager &settings, AccessibilityManager &accessibility, HotkeyManager &hotkeys,
                     WindowSnapEngine &engine, const PanelService &panels);

    void activate() override;
    void deactivate() override;
    std::optional<Page> settingsView() override;

private:
    AccessibilityManager &accessibility_;
    WindowSnapEngine &engine_;
    LayoutPickerController layoutPickerController_;
    WindowSnapSettings pageModel_;
};

}  // namespace pimloft
