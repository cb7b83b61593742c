// SPDX-License-Identifier: MIT
#pragma once

#include "platform/diagnosis/diagnosis.h"

namespace pimloft {

class AudioService;
class MacKeyTap;
class WindowService;

/// What the user lets the program do in the privacy settings, and whether there is sound. Asks the system,
/// never the user. Main thread.
class MacDiagnosis final : public DiagnosisService {
public:
    MacDiagnosis(WindowService &windows, const MacKeyTap &keyTap, AudioService &audio);

    std::vector<Finding> findings() override;

private:
    Finding accessibility();
    Finding keyEvents() const;
    Finding secureInput() const;
    Finding keyMappings();
    Finding sound();

    WindowService &windows_;
    const MacKeyTap &keyTap_;
    AudioService &audio_;
};

}  // namespace pimloft
