// SPDX-License-Identifier: MIT
#pragma once

#include "soak/soak_figures.h"

#include <string>
#include <vector>

namespace pimloft::test {

/// One figure over a run: its medians in the second and in the last quarter. The first quarter is left to
/// whatever a program takes once and keeps.
struct Growth {
    const FigureName *figure;
    double early;
    double late;
    double highest;
    bool isTooMuch() const { return late - early > figure->slack; }
};

/// Of every figure, in the order of `figureNames`. Needs at least eight samples in order of their time.
std::vector<Growth> growthOf(const std::vector<Holding> &samples);

/// The value that `share` (0 to 1) of all do not exceed; zero of none.
double quantile(std::vector<double> values, double share);

}  // namespace pimloft::test
