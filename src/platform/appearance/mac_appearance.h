// SPDX-License-Identifier: MIT
#pragma once

#include "platform/appearance/appearance.h"
#include "platform/appearance/mac_effective_appearance.h"

#include <QObject>

namespace pimloft {

/// The look that the system gives the application, which follows the user's. Main thread.
class MacAppearance final : public AppearanceService {
public:
    MacAppearance();

    bool isDark() const override { return isDark_; }

private:
    void update();

    bool isDark_;
    MacAppearanceObservation changes_;
    QObject calls_;  ///< receives what is queued
};

}  // namespace pimloft
