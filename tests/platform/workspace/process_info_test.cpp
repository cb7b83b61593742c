// SPDX-License-Identifier: MIT
#include "platform/workspace/process_info.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <sys/prctl.h>
#include <unistd.h>

namespace pimloft {
namespace {

/// A program that runs until the end of the test, with or without being launched from a desktop entry.
class Launched {
public:
    explicit Launched(const char *launchedProcess) {
        qputenv("GIO_LAUNCHED_DESKTOP_FILE", "/share/applications/cat.desktop");
        process_.setChildProcessModifier([launchedProcess] {
            const std::string own = std::to_string(getpid());
            setenv("GIO_LAUNCHED_DESKTOP_FILE_PID", launchedProcess ? launchedProcess : own.c_str(), 1);
        });
        process_.start(QStringLiteral("/bin/cat"), {});
        qunsetenv("GIO_LAUNCHED_DESKTOP_FILE");
        // Only a program that answers is known to be the one that was asked for.
        process_.write("\n");
        isRunning_ = process_.waitForReadyRead();
    }
    ~Launched() {
        process_.kill();
        process_.waitForFinished();
    }
    bool isRunning() const { return isRunning_; }
    ProcessId id() const { return ProcessId(process_.processId()); }

private:
    QProcess process_;
    bool isRunning_ = false;
};

TEST(ProcessInfo, tellsTheEntryThatTheProcessWasStartedFrom) {
    const Launched program(nullptr);
    ASSERT_TRUE(program.isRunning());
    const ProcessInfo info = processInfo(program.id());
    EXPECT_EQ(info.launchedEntry, QStringLiteral("/share/applications/cat.desktop"));
    EXPECT_EQ(info.name, QStringLiteral("cat"));
}

TEST(ProcessInfo, doesNotTakeItsParentsEntryForItsOwn) {
    const Launched program("1");
    ASSERT_TRUE(program.isRunning());
    EXPECT_EQ(processInfo(program.id()).launchedEntry, QString());
}

TEST(ProcessInfo, tellsWhichOfTwoProcessesStartedFirst) {
    const auto own = processStart(ProcessId(getpid()));
    const auto parent = processStart(ProcessId(getppid()));
    ASSERT_TRUE(own.has_value());
    ASSERT_TRUE(parent.has_value());
    EXPECT_LE(*parent, *own);
}

TEST(ProcessInfo, isNotMisledByAName) {
    char before[16] = {};
    prctl(PR_GET_NAME, before);
    const auto start = processStart(ProcessId(getpid()));
    prctl(PR_SET_NAME, ") R 1 (x");
    EXPECT_EQ(processStart(ProcessId(getpid())), start);
    prctl(PR_SET_NAME, before);
}

TEST(ProcessInfo, isEmptyForAProcessThatIsGone) {
    constexpr ProcessId none{0x7fffffff};
    EXPECT_EQ(processStart(none), std::nullopt);
    EXPECT_EQ(processInfo(none).executable, QString());
    EXPECT_EQ(processInfo(none).name, QString());
}

}  // namespace
}  // namespace pimloft
