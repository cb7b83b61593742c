// SPDX-License-Identifier: MIT
#include "platform/workspace/running_programs.h"

#include <algorithm>

namespace pimloft {

namespace {

bool isSameProgram(const RunningProgram &a, const RunningProgram &b) {
    return a.application.bundleId == b.application.bundleId &&
           (a.executable == b.executable || a.application.name == b.application.name);
}

ActivationPolicy policy(const RunningProgram &program) {
    if (program.hasWindows)
        return ActivationPolicy::regular;
    return program.application.bundleId ? ActivationPolicy::accessory : ActivationPolicy::prohibited;
}

}  // namespace

std::vector<Application> applicationsAmong(std::vector<RunningProgram> programs) {
    // What may be another one's helper comes last, the oldest of those without windows before the others.
    std::stable_sort(programs.begin(), programs.end(), [](const RunningProgram &a, const RunningProgram &b) {
        return a.hasWindows != b.hasWindows ? a.hasWindows : a.start < b.start;
    });
    std::vector<RunningProgram> kept;
    for (const RunningProgram &program : programs) {
        const bool isHelper =
            !program.hasWindows && std::any_of(kept.begin(), kept.end(), [&](const RunningProgram &other) {
                return isSameProgram(program, other);
            });
        if (!isHelper)
            kept.push_back(program);
    }
    std::stable_sort(kept.begin(), kept.end(),
                     [](const RunningProgram &a, const RunningProgram &b) { return a.start < b.start; });
    std::vector<Application> result;
    for (RunningProgram &program : kept) {
        program.application.policy = policy(program);
        result.push_back(program.application);
    }
    return result;
}

}  // namespace pimloft
