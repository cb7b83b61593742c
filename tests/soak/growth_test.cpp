// SPDX-License-Identifier: MIT
#include "soak/growth.h"

#include "soak/loop_watch.h"

#include <gmock/gmock.h>

#include <functional>

namespace pimloft::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The names of what is found to grow in a run of 120 samples.
std::vector<std::string> growing(const std::function<double(int second)> &handles) {
    std::vector<Holding> samples;
    for (int second = 0; second < 120; ++second) {
        Holding sample{double(second), std::vector<double>(figureNames.size(), 10)};
        sample.values[4] = handles(second);
        samples.push_back(sample);
    }
    std::vector<std::string> names;
    for (const Growth &each : growthOf(samples))
        if (each.isTooMuch())
            names.emplace_back(each.figure->name);
    return names;
}

TEST(Growth, isFoundWhereOneHandleLeaksEveryTenSeconds) {
    EXPECT_THAT(growing([](int second) { return 40 + second / 10.0; }), ElementsAre("open handles"));
}

TEST(Growth, isNotWhatComesAndGoes) {
    EXPECT_THAT(growing([](int second) { return second % 3 ? 40 : 80; }), IsEmpty());
}

TEST(Growth, isNotWhatIsTakenOnceAtTheStart) {
    EXPECT_THAT(growing([](int second) { return second < 30 ? 20 : 60; }), IsEmpty());
}

TEST(Growth, isNotWhatIsGivenBack) {
    EXPECT_THAT(growing([](int second) { return 80 - second / 4.0; }), IsEmpty());
}

TEST(TimesMet, countALongAnswerForEverybodyWhoWouldHaveAskedMeanwhile) {
    const std::vector<LoopWatch::Answer> answers{
        {.second = 0, .took = 1, .outOfTurn = 0, .onCpu = 1, .during = "", .state = {}},
        {.second = 1, .took = 12, .outOfTurn = 4, .onCpu = 8, .during = "", .state = {}}};
    EXPECT_THAT(timesMet(answers, true), ElementsAre(1, 12, 7, 2));
    EXPECT_THAT(timesMet(answers, false), ElementsAre(1, 8, 3));
}

TEST(Quantile, isTheValueThatSoManyDoNotExceed) {
    EXPECT_EQ(quantile({5, 1, 3, 2, 4}, 0.5), 3);
    EXPECT_EQ(quantile({5, 1, 3, 2, 4}, 1), 5);
    EXPECT_EQ(quantile({}, 0.5), 0);
}

}  // namespace
}  // namespace pimloft::test
