// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace pimloft {

/// Whether the application is to look dark. Main thread.
bool effectiveAppearanceIsDark();

/// Is told when that may have changed, until it is destroyed. Main thread.
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
