// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace pimloft {

/// What a script came to, in UTF-8. A value.
struct MacScriptAnswer {
    std::vector<std::string> items;
    std::optional<std::string> error;
};

/// Compiles a text and runs it to its end. Waits for the program that it tells something. Main thread.
MacScriptAnswer runAppleScript(const std::string &text);

}  // namespace pimloft
