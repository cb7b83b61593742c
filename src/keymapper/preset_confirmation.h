// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/key_mapping_preset.h"

#include <QObject>

#include <memory>
#include <optional>

namespace pimloft {

class KeyMapperModule;
class KeyMappingStore;
class SecondTimer;

/// Switches presets on and off, and takes one that was switched on back unless the user keeps it in time: a
/// keyboard that has become unusable comes back by itself. Outlives every window. Main thread.
class PresetConfirmation : public QObject {
    Q_OBJECT

public:
    PresetConfirmation(KeyMapperModule &module, KeyMappingStore &store, std::unique_ptr<SecondTimer> timer);
    ~PresetConfirmation() override;

    /// Either takes effect at once. Switching on has to be confirmed; it takes the place of another preset
    /// that waits for that, which then stays on.
    void enablePreset(KeyMappingPreset preset);
    void disablePreset(KeyMappingPreset preset);

    /// The preset stays on.
    void confirmPreset();
    /// The preset is switched off.
    void revertPreset();

    bool showConfirmation() const { return showConfirmation_; }
    std::optional<KeyMappingPreset> pendingPreset() const { return pendingPreset_; }
    /// Seconds until it reverts.
    int confirmationCountdown() const { return confirmationCountdown_; }

signals:
    void changed();

private:
    void tick();
    void end();

    KeyMapperModule &module_;
    KeyMappingStore &store_;
    const std::unique_ptr<SecondTimer> confirmationTimer_;
    bool showConfirmation_ = false;
    std::optional<KeyMappingPreset> pendingPreset_;
    int confirmationCountdown_ = 0;
};

}  // namespace pimloft
