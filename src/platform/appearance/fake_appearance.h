// SPDX-License-Identifier: MIT
#pragma once

#include "platform/appearance/appearance.h"

namespace pimloft {

/// A desktop whose look a test changes.
class FakeAppearance final : public AppearanceService {
public:
    QIcon traySymbol(const QString &) const override { return tray; }
    QIcon tray;
    bool isDark() const override { return dark_; }
    bool isHighContrast() const override { return highContrast_; }
    bool reducesMotion() const override { return reducesMotion_; }

    void setDark(bool dark) { set(dark_, dark); }
    void setHighContrast(bool highContrast) { set(highContrast_, highContrast); }
    void setReducesMotion(bool reducesMotion) { set(reducesMotion_, reducesMotion); }

private:
    void set(bool &wish, bool value) {
        wish = value;
        if (onChanged)
            onChanged();
    }

    bool dark_ = false;
    bool highContrast_ = false;
    bool reducesMotion_ = false;
};

}  // namespace pimloft
