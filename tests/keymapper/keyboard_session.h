// SPDX-License-Identifier: MIT
#pragma once

#include "app/accessibility_manager.h"
#include "app/notification_center.h"
#include "app/settings_manager.h"
#include "keymapper/key_mapper_module.h"
#include "keymapper/key_mapper_settings.h"
#include "keymapper/key_mapping_store.h"
#include "keymapper/key_remap_engine.h"
#include "keymapper/second_timer.h"
#include "platform/fake_desktop.h"

#include <QTemporaryDir>

#include <optional>

namespace pimloft::test {

/// Seconds that pass when the test says so.
class ManualSecondTimer final : public SecondTimer {
public:
    void start() override {
        isRunning = true;
        ++starts;
    }
    void stop() override { isRunning = false; }
    void pass(int seconds) {
        for (int second = 0; second < seconds && isRunning; ++second)
            onTick();
    }

    bool isRunning = false;
    int starts = 0;
};

/// Key remapping as a whole on a pretended desktop, with a folder of its own.
class KeyboardSession {
public:
    explicit KeyboardSession(bool trusted = true) {
        desktop.windows.trusted = trusted;
        accessibility.refresh();
        open();
    }

    /// As the next run of the program finds it.
    void open() {
        module.reset();
        engine.reset();
        store.emplace(desktop.preferences, folder.path());
        engine.emplace(desktop.keyTap, desktop.workspace, notifications);
        auto newTimer = std::make_unique<ManualSecondTimer>();
        timer = newTimer.get();
        module.emplace(KeyMapperModule::Collaborators{.settings = settings,
                                                      .accessibility = accessibility,
                                                      .store = *store,
                                                      .engine = *engine,
                                                      .notifications = notifications,
                                                      .dialogs = desktop.dialogs},
                       std::move(newTimer));
        desktop.log();
    }

    KeyMapperSettings &page() { return module->pageModel(); }

    QTemporaryDir folder;
    FakeDesktop desktop;
    SettingsManager settings{desktop.preferences, desktop.loginItem};
    AccessibilityManager accessibility{desktop.windows};
    NotificationCenter notifications;
    std::optional<KeyMappingStore> store;
    std::optional<KeyRemapEngine> engine;
    ManualSecondTimer *timer = nullptr;
    std::optional<KeyMapperModule> module;
};

}  // namespace pimloft::test
