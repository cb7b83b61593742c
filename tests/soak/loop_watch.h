// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace pimloft::test {

/// How long the running program's main loop takes to get to a request, found out from outside: every 5 ms a
/// word that means nothing is said to the socket on which another launch would knock, and the main loop hangs
/// up on it. That costs the program some 0.1 ms and needs nothing in it that is there for a test.
///
/// Made, stopped and read on one thread; asks on its own.
class LoopWatch {
public:
    using Clock = std::chrono::steady_clock;

    struct Answer {
        double second;       ///< since `start`
        double took;         ///< ms
        double outOfTurn;    ///< ms of those in which the program or the asker waited for a processor
        double onCpu;        ///< ms of those in which the main thread ran
        const char *during;  ///< what the user was doing
        std::string state;   ///< what the main thread was seen doing; empty for a quick answer
    };

    /// `process` is the program; `activity` names what its user is doing, in texts that live for ever.
    LoopWatch(std::string socket, pid_t process, const std::atomic<const char *> &activity,
              Clock::time_point start);
    ~LoopWatch();

    void stop();
    /// All of them, in their order. After `stop`.
    const std::vector<Answer> &answers() const { return answers_; }

private:
    void run();
    bool ask(Answer &answer);
    std::string seenState() const;

    const std::string socket_;
    const pid_t process_;
    const std::atomic<const char *> &activity_;
    const Clock::time_point start_;
    std::vector<Answer> answers_;
    std::atomic<bool> done_ = false;
    std::thread thread_;
};

/// Answer times as somebody would have met them who asked every 5 ms whatever happened: a loop that is busy
/// for 50 ms keeps ten of them waiting and not one. With what was out of turn, or without.
std::vector<double> timesMet(const std::vector<LoopWatch::Answer> &answers, bool withOutOfTurn);

}  // namespace pimloft::test
