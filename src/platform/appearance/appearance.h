// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

#include <functional>

namespace pimloft {

/// How the user wants the desktop to look. Main thread.
class AppearanceService {
public:
    virtual ~AppearanceService() = default;

    /// Light where the desktop says nothing.
    virtual bool isDark() const = 0;
    /// Whether everything is to stand out more than usual.
    virtual bool isHighContrast() const = 0;
    /// Whether nothing is to glide, turn or fade.
    virtual bool reducesMotion() const = 0;

    /// The desktop's own drawing of a symbol, which its tray colours as it needs. Null where it has none.
    virtual QIcon traySymbol(const QString &name) const = 0;

    /// Called, queued, after the user changed any of it.
    std::function<void()> onChanged;
};

}  // namespace pimloft
