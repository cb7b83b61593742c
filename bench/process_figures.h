// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <vector>

/// What the kernel knows of a process. Any thread; a process that is gone has zeros.
namespace pimloft::bench {

/// In MB of 1024 × 1024 bytes, as ps and top count them.
struct Memory {
    double resident;      ///< shared pages counted in full
    double proportional;  ///< shared pages divided among those who share them
    double privately;     ///< what ending the process would give back
};
Memory memoryOf(pid_t process);

/// The processes that it started and that are still there.
std::vector<pid_t> childrenOf(pid_t process);

/// The most memory that this process itself had in place since `forgetPeak`, in MB of 1000 × 1000 bytes.
double peakMemory();
void forgetPeak();

struct Activity {
    double cpuSeconds;  ///< of all its threads
    double sleeps;      ///< how often a thread of it went to sleep by itself
};
Activity activityOf(pid_t process);

}  // namespace pimloft::bench
