// SPDX-License-Identifier: MIT
#include "platform/events/x11_key_tap.h"

namespace pimloft {

bool X11KeyTap::install(std::shared_ptr<KeyFilter>) {
    return false;
}

}  // namespace pimloft
