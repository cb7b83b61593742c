// SPDX-License-Identifier: MIT
#include "soak/loop_watch.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <poll.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

namespace pimloft::test {

namespace {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr auto period = 5ms;
/// From here on it is looked at what the main thread is doing.
constexpr int noticeable = 8;
constexpr int patience = 20000;

/// What the kernel's scheduler knows of a thread.
struct Turns {
    double ran = 0;     ///< ns
    double waited = 0;  ///< ns
};
Turns turnsOf(const std::string &thread) {
    Turns turns;
    std::ifstream(thread + "/schedstat") >> turns.ran >> turns.waited;
    return turns;
}

struct CallName {
    long number;
    const char *name;
};
constexpr CallName callNames[] = {
    {SYS_fsync, "fsync"},     {SYS_fdatasync, "fdatasync"}, {SYS_poll, "poll"},   {SYS_ppoll, "ppoll"},
    {SYS_futex, "futex"},     {SYS_read, "read"},           {SYS_write, "write"}, {SYS_recvmsg, "recvmsg"},
    {SYS_sendmsg, "sendmsg"}, {SYS_writev, "writev"},       {SYS_wait4, "wait4"}, {SYS_pread64, "pread"},
    {SYS_openat, "openat"},   {SYS_rename, "rename"},       {SYS_vfork, "vfork"}, {SYS_clone3, "clone3"},
    {SYS_munmap, "munmap"},
};

int connectTo(const std::string &path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0)
        return descriptor;
    close(descriptor);
    return -1;
}

}  // namespace

LoopWatch::LoopWatch(std::string socket, pid_t process, const std::atomic<const char *> &activity,
                     Clock::time_point start)
    : socket_(std::move(socket)), process_(process), activity_(activity), start_(start),
      thread_(&LoopWatch::run, this) {
}

LoopWatch::~LoopWatch() {
    stop();
}

void LoopWatch::stop() {
    done_ = true;
    if (thread_.joinable())
        thread_.join();
}

void LoopWatch::run() {
    while (!done_) {
        const Clock::time_point due = Clock::now() + period;
        if (Answer answer; ask(answer))
            answers_.push_back(std::move(answer));
        std::this_thread::sleep_until(due);
    }
}

bool LoopWatch::ask(Answer &answer) {
    const std::string main = "/proc/" + std::to_string(process_) + "/task/" + std::to_string(process_);
    const std::string own = "/proc/thread-self";
    const Turns mainBefore = turnsOf(main);
    const Turns ownBefore = turnsOf(own);
    answer.during = activity_;
    const Clock::time_point asked = Clock::now();
    const int connection = connectTo(socket_);
    if (connection < 0)
        return false;
    static constexpr char word[] = "ping\n";
    const bool isSaid = send(connection, word, sizeof word - 1, MSG_NOSIGNAL) == ssize_t(sizeof word - 1);
    pollfd source{connection, POLLIN, 0};
    if (isSaid && poll(&source, 1, noticeable) == 0) {
        answer.state = seenState();
        poll(&source, 1, patience);
    }
    answer.took = Milliseconds(Clock::now() - asked).count();
    close(connection);
    const Turns mainAfter = turnsOf(main);
    const Turns ownAfter = turnsOf(own);
    answer.second = std::chrono::duration<double>(asked - start_).count();
    answer.onCpu = (mainAfter.ran - mainBefore.ran) / 1e6;
    answer.outOfTurn = std::min(
        answer.took, (mainAfter.waited - mainBefore.waited + ownAfter.waited - ownBefore.waited) / 1e6);
    return isSaid;
}

/// "runs", or the system call in which the main thread waits.
std::string LoopWatch::seenState() const {
    std::ifstream stream("/proc/" + std::to_string(process_) + "/syscall");
    std::string first;
    stream >> first;
    if (first.empty())
        return "unknown";
    if (first == "running")
        return "runs";
    const long number = std::strtol(first.c_str(), nullptr, 10);
    for (const CallName &each : callNames)
        if (each.number == number)
            return std::string("in ") + each.name;
    return "in call " + first;
}

std::vector<double> timesMet(const std::vector<LoopWatch::Answer> &answers, bool withOutOfTurn) {
    constexpr double step = Milliseconds(period).count();
    std::vector<double> times;
    for (const LoopWatch::Answer &answer : answers) {
        double left = answer.took - (withOutOfTurn ? 0 : answer.outOfTurn);
        do
            times.push_back(left);
        while ((left -= step) > 0);
    }
    return times;
}

}  // namespace pimloft::test
