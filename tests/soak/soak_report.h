// SPDX-License-Identifier: MIT
#pragma once

#include "soak/growth.h"
#include "soak/loop_watch.h"

#include <QString>

#include <map>
#include <string>

namespace pimloft::test {

/// How often an activity was performed, and how often what it is about happened.
struct Tally {
    int times = 0;
    int successes = 0;
};

/// What a run has found out.
struct SoakResult {
    std::uint32_t seed;
    std::vector<Holding> samples;
    std::vector<LoopWatch::Answer> answers;
    std::map<std::string, Tally> tallies;
};

/// Tables in Markdown: what was done, what was held, how the main loop answered, its longest stalls.
std::string tablesOf(const SoakResult &result);

/// Writes the tables and the samples behind them, as comma-separated values, into a folder that is
/// there.
void keep(const SoakResult &result, const QString &folder);

}  // namespace pimloft::test
