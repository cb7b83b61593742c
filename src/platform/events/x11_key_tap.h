// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_tap.h"

namespace pimloft {

/// Refuses every filter: keys are not yet taken from the X server. Main thread.
class X11KeyTap final : public KeyTap {
public:
    bool install(std::shared_ptr<KeyFilter> filter) override;
    void enable() override {}
    void remove() override {}
    void setFrontmost(std::string) override {}
};

}  // namespace pimloft
