// SPDX-License-Identifier: MIT
#pragma once

#include "app/pimloft_module.h"

#include <memory>

namespace pimloft {

class AccessibilityManager;
class DialogService;
class KeyMapperSettings;
class KeyMappingStore;
class KeyRemapEngine;
class NotificationCenter;
class SecondTimer;

/// Key remapping as the rest of the program sees it. Main thread.
class KeyMapperModule final : public PimloftModule {
    Q_OBJECT
    Q_PROPERTY(bool isRemappingActive READ isRemappingActive NOTIFY isRemappingActiveChanged)

public:
    /// What it works with; all of it outlives the module.
    struct Collaborators {
        SettingsManager &settings;
        AccessibilityManager &accessibility;
        KeyMappingStore &store;
        KeyRemapEngine &engine;
        NotificationCenter &notifications;
        DialogService &dialogs;
    };
    /// On the shared instances.
    static std::unique_ptr<KeyMapperModule> create();
    /// `confirmationTimer` counts the time in which a preset has to be confirmed.
    KeyMapperModule(const Collaborators &collaborators, std::unique_ptr<SecondTimer> confirmationTimer);
    ~KeyMapperModule() override;

    void activate() override;
    void deactivate() override;
    std::optional<Page> settingsView() override;

    /// Hands what the store holds to the engine; to be called after every change of it. Does nothing while
    /// the feature is disabled.
    void reloadMappings();

    /// Whether keys are being remapped right now; can be false while the feature is enabled.
    bool isRemappingActive() const { return isRemappingActive_; }
    /// What its page shows; outlives every window.
    KeyMapperSettings &pageModel() { return *pageModel_; }

signals:
    void isRemappingActiveChanged();

private:
    void setRemappingActive(bool active);
    void tellOfPanic();

    AccessibilityManager &accessibility_;
    KeyMappingStore &store_;
    KeyRemapEngine &engine_;
    DialogService &dialogs_;
    bool isRemappingActive_ = false;
    std::unique_ptr<KeyMapperSettings> pageModel_;
};

}  // namespace pimloft
