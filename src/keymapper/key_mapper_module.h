// SPDX-License-Identifier: MIT
#pragma once

#include "app/pimloft_module.h"

namespace pimloft {

/// Key remapping as a feature that can be switched. Main thread.
class KeyMapperModule final : public PimloftModule {
    Q_OBJECT
    Q_PROPERTY(bool isRemappingActive READ isRemappingActive NOTIFY isRemappingActiveChanged)

public:
    explicit KeyMapperModule(SettingsManager &settings);

    void activate() override;
    void deactivate() override;
    std::optional<Page> settingsView() override;

    /// Whether keys are being remapped right now; can be false while the feature is enabled.
    bool isRemappingActive() const { return isRemappingActive_; }

signals:
    void isRemappingActiveChanged();

private:
    bool isRemappingActive_ = false;
};

}  // namespace pimloft
