// SPDX-License-Identifier: MIT
#pragma once

#include "platform/loginitem/login_item.h"

namespace pimloft {

/// The login items of the system's settings. Main thread.
class MacLoginItem final : public LoginItemService {
public:
    std::optional<QString> registerMainApplication() override;
    std::optional<QString> unregisterMainApplication() override;
};

}  // namespace pimloft
