// SPDX-License-Identifier: MIT
#include "keymapper/key_scenario_player.h"

#include <gtest/gtest.h>

namespace pimloft::test {
namespace {

class KeyScenarios : public testing::TestWithParam<Scenario> {};

TEST_P(KeyScenarios, goAsWritten) {
    EXPECT_EQ(KeyScenarioPlayer().play(GetParam()).toStdString(), GetParam().lines.join(u'\n').toStdString());
}

auto storiesOf(const char *file) {
    return testing::ValuesIn(readScenarios(QStringLiteral(SCENARIOS "/") + QLatin1String(file)));
}

INSTANTIATE_TEST_SUITE_P(WindowsMode, KeyScenarios, storiesOf("windows-mode.txt"), scenarioName);
INSTANTIATE_TEST_SUITE_P(Rules, KeyScenarios, storiesOf("rules.txt"), scenarioName);
INSTANTIATE_TEST_SUITE_P(Presets, KeyScenarios, storiesOf("presets.txt"), scenarioName);
INSTANTIATE_TEST_SUITE_P(Panic, KeyScenarios, storiesOf("panic.txt"), scenarioName);
INSTANTIATE_TEST_SUITE_P(Lifecycle, KeyScenarios, storiesOf("lifecycle.txt"), scenarioName);

}  // namespace
}  // namespace pimloft::test
