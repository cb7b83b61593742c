// SPDX-License-Identifier: MIT
#pragma once

#include "app/pimloft_module.h"

namespace pimloft {

/// The file tools as a feature that can be switched. Main thread.
class FinderFixModule final : public PimloftModule {
    Q_OBJECT

public:
    explicit FinderFixModule(SettingsManager &settings);

    void activate() override;
    void deactivate() override;
    std::optional<Page> settingsView() override;
};

}  // namespace pimloft
