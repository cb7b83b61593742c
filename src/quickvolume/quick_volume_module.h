// SPDX-License-Identifier: MIT
#pragma once

#include "app/pimloft_module.h"

namespace pimloft {

/// The volume mixer as a feature that can be switched. Main thread.
class QuickVolumeModule final : public PimloftModule {
    Q_OBJECT

public:
    explicit QuickVolumeModule(SettingsManager &settings);

    void activate() override;
    void deactivate() override;
    std::optional<Page> settingsView() override;
};

}  // namespace pimloft
