// SPDX-License-Identifier: MIT
#pragma once

#include <ApplicationServices/ApplicationServices.h>

#include <optional>

namespace pimloft::test::mac {

/// The focused window of the application in front, as the accessibility interface gives it.
struct FocusedWindow {
    bool isTrusted = true;
    bool hasApplication = true;
    bool hasWindow = true;
    bool isGone = false;
    bool hasOddValues = false;   ///< its position and size are texts
    bool refusesValues = false;  ///< no value can be packed
    pid_t process = 4711;
    CGPoint position{100, 200};
    CGSize size{640, 480};
    float patience = 0;  ///< seconds that a call waits
};
FocusedWindow &focusedWindow();

}  // namespace pimloft::test::mac
