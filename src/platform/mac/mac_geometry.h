// SPDX-License-Identifier: MIT
#pragma once

namespace pimloft {

// Geometry as the Objective-C files give it: without Qt. Values; any thread.

struct MacPoint {
    double x;
    double y;
};

struct MacRect {
    double x;
    double y;
    double width;
    double height;
};

}  // namespace pimloft
