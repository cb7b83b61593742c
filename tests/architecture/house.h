// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pimloft::test {

/// The house plan: which layer may know which. Pure data; any thread.
struct Layer {
    std::string_view name;
    std::vector<std::string_view> mayInclude;  ///< names of layers; its own is always allowed
    std::vector<std::string_view> qt;          ///< parts of Qt whose headers it may include
    bool mayNameSystems = false;               ///< may ask which operating system it is compiled for
};

/// The layer that a target builds: modules and their pages have one each. Null when the plan lacks it.
const Layer *layerOf(std::string_view target);

/// The module that a target is part of ("windowsnap"), or nothing.
std::string_view moduleOf(std::string_view target);

/// Why `from` may not include a file of `to`, or nothing when it may.
std::string objection(std::string_view from, std::string_view to);

}  // namespace pimloft::test
