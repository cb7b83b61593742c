// SPDX-License-Identifier: MIT
#include "platform/workspace/running_programs.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

RunningProgram program(qint32 process, const char *name, const char *bundleId, const char *executable,
                       bool hasWindows = false) {
    Application application{.name = QLatin1String(name), .bundleId = {}, .processId = ProcessId(process)};
    if (*bundleId)
        application.bundleId = QLatin1String(bundleId);
    // A later process has a higher number here.
    return {application, QLatin1String(executable), quint64(process), hasWindows};
}

RunningProgram windowed(qint32 process, const char *name, const char *bundleId, const char *executable) {
    return program(process, name, bundleId, executable, true);
}

std::string summary(std::vector<RunningProgram> programs) {
    QStringList lines;
    for (const Application &each : applicationsAmong(std::move(programs))) {
        static const char *const policies[] = {"regular", "accessory", "prohibited"};
        lines.append(QStringLiteral("%1 %2 %3")
                         .arg(each.name)
                         .arg(qint32(each.processId))
                         .arg(QLatin1String(policies[int(each.policy)])));
    }
    return lines.join(QStringLiteral(", ")).toStdString();
}

TEST(RunningPrograms, areListedInTheOrderOfTheirStart) {
    EXPECT_EQ(summary({windowed(3, "C", "c", "c"), windowed(1, "A", "a", "a"), program(2, "B", "b", "b")}),
              "A 1 regular, B 2 accessory, C 3 regular");
}

TEST(RunningPrograms, areProhibitedWithoutWindowsWhenTheDesktopDoesNotKnowThem) {
    EXPECT_EQ(summary({program(1, "openbox", "", "openbox")}), "openbox 1 prohibited");
    EXPECT_EQ(summary({windowed(1, "own tool", "", "tool")}), "own tool 1 regular");
}

TEST(RunningPrograms, areListedOncePerWindowedProcess) {
    EXPECT_EQ(summary({windowed(1, "mpv", "io.mpv", "mpv"), windowed(2, "mpv", "io.mpv", "mpv")}),
              "mpv 1 regular, mpv 2 regular");
}

TEST(RunningPrograms, includeNoHelperOfAProgramWithWindows) {
    EXPECT_EQ(summary({windowed(1, "Google Chrome", "com.google.Chrome", "chrome"),
                       program(2, "chrome", "com.google.Chrome", "chrome")}),
              "Google Chrome 1 regular");
    EXPECT_EQ(summary({program(1, "Steam", "com.valvesoftware.steam", "steam"),
                       windowed(2, "Steam", "com.valvesoftware.steam", "steamwebhelper")}),
              "Steam 2 regular");
    EXPECT_EQ(summary({windowed(1, "own tool", "", "tool"), program(2, "tool", "", "tool")}),
              "own tool 1 regular");
}

TEST(RunningPrograms, includeTheMainProcessOfAProgramWithoutWindows) {
    EXPECT_EQ(summary({program(2, "chrome", "com.google.Chrome", "chrome"),
                       program(1, "chrome", "com.google.Chrome", "chrome")}),
              "chrome 1 accessory");
}

TEST(RunningPrograms, includeAnotherProgramOfTheSameRole) {
    EXPECT_EQ(summary({windowed(1, "Rhythmbox", "com.apple.Music", "rhythmbox"),
                       program(2, "Strawberry", "com.apple.Music", "strawberry")}),
              "Rhythmbox 1 regular, Strawberry 2 accessory");
}

}  // namespace
}  // namespace pimloft
