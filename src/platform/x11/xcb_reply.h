// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <memory>

namespace pimloft {

/// Owns what xcb answers.
struct XcbFree {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T>
using XcbReply = std::unique_ptr<T, XcbFree>;

}  // namespace pimloft
