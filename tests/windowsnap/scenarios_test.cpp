// SPDX-License-Identifier: MIT
#include "windowsnap/scenario_player.h"

#include <gtest/gtest.h>

namespace pimloft::test {

namespace {

class Snapping : public testing::TestWithParam<Scenario> {};

TEST_P(Snapping, goesAsWritten) {
    EXPECT_EQ(ScenarioPlayer().play(GetParam()).toStdString(), GetParam().lines.join(u'\n').toStdString());
}

INSTANTIATE_TEST_SUITE_P(Drags, Snapping,
                         testing::ValuesIn(readScenarios(QStringLiteral(SCENARIOS "/drags.txt"))),
                         scenarioName);
INSTANTIATE_TEST_SUITE_P(Shortcuts, Snapping,
                         testing::ValuesIn(readScenarios(QStringLiteral(SCENARIOS "/shortcuts.txt"))),
                         scenarioName);

}  // namespace
}  // namespace pimloft::test
