// SPDX-License-Identifier: MIT
#include "windowsnap/scenario_player.h"

#include <gtest/gtest.h>

namespace pimloft::test {

void PrintTo(const Scenario &scenario, std::ostream *out) {
    *out << scenario.title.toStdString();
}

namespace {

/// "A drag of 5 points" becomes "ADragOf5Points".
std::string testName(const testing::TestParamInfo<Scenario> &info) {
    QString name;
    bool startsWord = true;
    for (const QChar character : info.param.title) {
        if (character.isLetterOrNumber())
            name += startsWord ? character.toUpper() : character;
        startsWord = !character.isLetterOrNumber();
    }
    return name.toStdString();
}

class Snapping : public testing::TestWithParam<Scenario> {};

TEST_P(Snapping, goesAsWritten) {
    EXPECT_EQ(ScenarioPlayer().play(GetParam()).toStdString(), GetParam().lines.join(u'\n').toStdString());
}

INSTANTIATE_TEST_SUITE_P(Drags, Snapping,
                         testing::ValuesIn(readScenarios(QStringLiteral(SCENARIOS "/drags.txt"))), testName);
INSTANTIATE_TEST_SUITE_P(Shortcuts, Snapping,
                         testing::ValuesIn(readScenarios(QStringLiteral(SCENARIOS "/shortcuts.txt"))),
                         testName);

}  // namespace
}  // namespace pimloft::test
