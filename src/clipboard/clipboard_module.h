// SPDX-License-Identifier: MIT
#pragma once

#include "app/pimloft_module.h"

namespace pimloft {

/// The clipboard history as a feature that can be switched. Main thread.
class ClipboardModule final : public PimloftModule {
    Q_OBJECT

public:
    explicit ClipboardModule(SettingsManager &settings);

    void activate() override;
    void deactivate() override;
    std::optional<Page> settingsView() override;
};

}  // namespace pimloft
