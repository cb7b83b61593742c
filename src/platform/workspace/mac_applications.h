// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pimloft {

// What the workspace tells of applications and files, in UTF-8. Main thread.

/// A running application as the system describes it. A value.
struct MacApplication {
    enum class Policy { regular, accessory, prohibited };

    std::string name;
    std::optional<std::string> bundleId;
    std::int32_t process;
    Policy policy;
};

std::optional<MacApplication> frontApplication();
/// In the order in which they were started.
std::vector<MacApplication> launchedApplications();

/// False when no application takes the link.
bool openLink(const std::string &url);
/// Selects `path`, if there is one, in a window of the file manager that shows its folder; without one shows
/// `folder`.
void showInFileManager(const std::optional<std::string> &path, const std::string &folder);

}  // namespace pimloft
