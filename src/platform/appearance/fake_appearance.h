// SPDX-License-Identifier: MIT
#pragma once

#include "platform/appearance/appearance.h"

namespace pimloft {

/// A desktop whose look a test changes.
class FakeAppearance final : public AppearanceService {
public:
    bool isDark() const override { return dark_; }
    void setDark(bool dark) {
        dark_ = dark;
        if (onChanged)
            onChanged();
    }

private:
    bool dark_ = false;
};

}  // namespace pimloft
