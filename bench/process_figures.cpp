// SPDX-License-Identifier: MIT
#include "process_figures.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace pimloft::bench {

namespace {

std::string folder(pid_t process) {
    return "/proc/" + std::to_string(process);
}

/// The number behind a label such as "Rss:".
double valueOf(const std::string &file, const std::string &label) {
    std::ifstream stream(file);
    double value = 0;
    for (std::string word; stream >> word;)
        if (word == label && stream >> value)
            return value;
    return 0;
}

/// Those that are there while it is looked; the process may be about to end.
std::vector<std::filesystem::path> threadsOf(pid_t process) {
    std::vector<std::filesystem::path> threads;
    std::error_code gone;
    for (std::filesystem::directory_iterator each(folder(process) + "/task", gone), end; !gone && each != end;
         each.increment(gone))
        threads.push_back(each->path());
    return threads;
}

}  // namespace

Memory memoryOf(pid_t process) {
    constexpr double kilobytes = 1024;
    const std::string file = folder(process) + "/smaps_rollup";
    return {valueOf(file, "Rss:") / kilobytes, valueOf(file, "Pss:") / kilobytes,
            (valueOf(file, "Private_Clean:") + valueOf(file, "Private_Dirty:")) / kilobytes};
}

std::vector<pid_t> childrenOf(pid_t process) {
    std::vector<pid_t> children;
    for (const std::filesystem::path &thread : threadsOf(process)) {
        std::ifstream stream(thread / "children");
        for (pid_t child = 0; stream >> child;)
            children.push_back(child);
    }
    return children;
}

double peakMemory() {
    constexpr double bytesPerKilobyte = 1024;
    return valueOf("/proc/self/status", "VmHWM:") * bytesPerKilobyte / 1e6;
}

void forgetPeak() {
    std::ofstream("/proc/self/clear_refs") << 5;
}

Activity activityOf(pid_t process) {
    Activity activity = {0, 0};
    for (const std::filesystem::path &thread : threadsOf(process)) {
        double nanoseconds = 0;
        std::ifstream(thread / "schedstat") >> nanoseconds;
        activity.cpuSeconds += nanoseconds / 1e9;
        activity.sleeps += valueOf((thread / "status").string(), "voluntary_ctxt_switches:");
    }
    return activity;
}

}  // namespace pimloft::bench
