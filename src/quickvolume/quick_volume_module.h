// SPDX-License-Identifier: MIT
#pragma once

#include "app/pimloft_module.h"
#include "quickvolume/volume_mixer.h"

namespace pimloft {

class AudioEngine;

/// Volume control as the rest of the program sees it. Main thread.
class QuickVolumeModule final : public PimloftModule {
    Q_OBJECT

public:
    /// On the shared instances.
    static std::unique_ptr<QuickVolumeModule> create();
    QuickVolumeModule(SettingsManager &settings, AudioEngine &engine);

    void activate() override;
    void deactivate() override;
    std::optional<Page> settingsView() override;
    /// The mixer.
    std::optional<Page> panelView() override;

private:
    AudioEngine &engine_;
    VolumeMixer mixer_;
};

}  // namespace pimloft
