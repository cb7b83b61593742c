// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace pimloft {

/// Whether the application is to look dark. Main thread.
bool effectiveAppearanceIsDark();

/// Whether the user asked the system to raise contrasts, and to move nothing that need not move. Main thread.
bool systemIncreasesContrast();
bool systemReducesMotion();

/// Is told when the first may have changed, until it is destroyed. Main thread.
class MacAppearanceObservation {
public:
    explicit MacAppearanceObservation(std::function<void()> changed);
    ~MacAppearanceObservation();
    MacAppearanceObservation(const MacAppearanceObservation &) = delete;
    MacAppearanceObservation &operator=(const MacAppearanceObservation &) = delete;

private:
    struct Observer;
    const std::unique_ptr<Observer> observer_;
};

}  // namespace pimloft
