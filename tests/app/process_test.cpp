// SPDX-License-Identifier: MIT
#include "app/process.h"

#include "platform/fake_desktop.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using Log = std::vector<std::string>;

/// Writes down when it is made and destroyed. The number makes types of it.
template <int number>
struct Numbered {
    explicit Numbered(Log &log) : log_(log) { log_.push_back("make " + std::to_string(number)); }
    ~Numbered() { log_.push_back("destroy " + std::to_string(number)); }
    Log &log_;
};

struct InAProcess : testing::Test {
    template <typename T>
    T &shared() {
        return Process::current().shared<T>([this](Process &) { return std::make_unique<T>(log); });
    }

    FakeDesktop desktop;
    SystemClock clock;
    Log log;
    std::optional<Process> process{std::in_place, desktop.platform(), clock, Dirs{}};
};

TEST_F(InAProcess, aSharedInstanceIsMadeOnFirstUseAndThenKept) {
    auto &first = shared<Numbered<1>>();
    EXPECT_EQ(&shared<Numbered<1>>(), &first);
    EXPECT_EQ(log, Log{"make 1"});
}

TEST_F(InAProcess, instancesAreDestroyedInReverse) {
    shared<Numbered<1>>();
    shared<Numbered<2>>();
    process.reset();
    EXPECT_EQ(log, (Log{"make 1", "make 2", "destroy 2", "destroy 1"}));
}

TEST_F(InAProcess, whatAnInstanceIsMadeFromOutlivesIt) {
    Process::current().shared<Numbered<1>>([this](Process &) {
        shared<Numbered<2>>();
        return std::make_unique<Numbered<1>>(log);
    });
    process.reset();
    EXPECT_EQ(log, (Log{"make 2", "make 1", "destroy 1", "destroy 2"}));
}

/// Asks for other instances while it is destroyed.
struct Farewell {
    explicit Farewell(Log &log) : log_(log) {}
    ~Farewell() {
        const auto make = [this](Process &) { return std::make_unique<Numbered<1>>(log_); };
        Process::current().shared<Numbered<1>>(make).log_.push_back("goodbye");
    }
    Log &log_;
};

TEST_F(InAProcess, anInstanceMayUseAnOlderOneWhileItGoes) {
    shared<Numbered<1>>();
    shared<Farewell>();
    process.reset();
    EXPECT_EQ(log, (Log{"make 1", "goodbye", "destroy 1"}));
}

TEST_F(InAProcess, whatIsAskedForFirstWhileAnInstanceGoesIsMadeAndDestroyedToo) {
    shared<Farewell>();
    process.reset();
    EXPECT_EQ(log, (Log{"make 1", "goodbye", "destroy 1"}));
}

TEST_F(InAProcess, handsOutWhatItWasStartedWith) {
    EXPECT_EQ(&process->clock(), &clock);
    EXPECT_EQ(&process->platform().windows, &desktop.windows);
    EXPECT_EQ(&Process::current(), &*process);
}

using InAProcessDeathTest = InAProcess;

TEST_F(InAProcessDeathTest, thereIsNoSecondOne) {
    EXPECT_DEATH(Process(desktop.platform(), clock, Dirs{}), "second Process");
}

TEST_F(InAProcessDeathTest, outsideOfItNothingIsShared) {
    process.reset();
    EXPECT_DEATH(Process::current(), "outside of the Process");
}

TEST_F(InAProcess, anotherOneMayFollowIt) {
    shared<Numbered<1>>();
    process.reset();
    log.clear();
    process.emplace(desktop.platform(), clock, Dirs{});
    shared<Numbered<1>>();
    EXPECT_EQ(log, Log{"make 1"});
}

}  // namespace
}  // namespace pimloft
