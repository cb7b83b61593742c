// SPDX-License-Identifier: MIT
#include "app/command_line.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using Action = CommandLine::Action;

TEST(CommandLine, startsTheProgramWithoutAnOption) {
    EXPECT_EQ(CommandLine::parse({}).action, Action::run);
}

TEST(CommandLine, knowsItsOptions) {
    EXPECT_EQ(CommandLine::parse({"--settings"}).action, Action::openSettings);
    EXPECT_EQ(CommandLine::parse({"--quit"}).action, Action::quit);
    EXPECT_EQ(CommandLine::parse({"--doctor"}).action, Action::doctor);
    EXPECT_EQ(CommandLine::parse({"--version"}).action, Action::showVersion);
    EXPECT_EQ(CommandLine::parse({"--help"}).action, Action::showHelp);
}

TEST(CommandLine, refusesOtherWordsAndNamesThem) {
    const CommandLine line = CommandLine::parse({"--sitting"});
    EXPECT_EQ(line.action, Action::refuse);
    EXPECT_EQ(line.unknown, "--sitting");
}

TEST(CommandLine, helpNamesEveryOption) {
    for (const char *option : {"--settings", "--quit", "--doctor", "--version", "--help"})
        EXPECT_TRUE(CommandLine::help().contains(QLatin1String(option))) << option;
}

}  // namespace
}  // namespace pimloft
