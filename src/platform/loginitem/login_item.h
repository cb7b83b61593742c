// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

namespace pimloft {

/// Whether the desktop starts this program at login. Main thread.
class LoginItemService {
public:
    virtual ~LoginItemService() = default;

    /// Each answers nothing on success, else a description of the failure. Repeating one is a success.
    virtual std::optional<QString> registerMainApplication() = 0;
    virtual std::optional<QString> unregisterMainApplication() = 0;
};

}  // namespace pimloft
