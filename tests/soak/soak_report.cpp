// SPDX-License-Identifier: MIT
#include "soak/soak_report.h"

#include <QFile>

#include <algorithm>
#include <fstream>
#include <iomanip>
#include <sstream>

namespace pimloft::test {

namespace {

constexpr double budget = 16;  ///< ms
constexpr std::size_t longest = 15;

std::string tableOfActivities(const SoakResult &result) {
    std::ostringstream text;
    text << "| Activity | Times | Succeeded |\n|---|---:|---:|\n";
    for (const auto &[name, tally] : result.tallies)
        text << "| " << name << " | " << tally.times << " | " << tally.successes << " |\n";
    return text.str();
}

std::string tableOfGrowth(const SoakResult &result) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(1)
         << "| Figure | Second quarter | Last quarter | May grow by | Highest |\n|---|---:|---:|---:|---:|\n";
    for (const Growth &each : growthOf(result.samples))
        text << "| " << each.figure->name << (*each.figure->unit ? ", " : "") << each.figure->unit << " | "
             << each.early << " | " << each.late << " | " << each.figure->slack << " | " << each.highest
             << " |" << (each.isTooMuch() ? " **grows**" : "") << '\n';
    return text.str();
}

std::string tableOfAnswers(const SoakResult &result) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(2)
         << "| Main loop's answer, ms | Median | p99 | p99.9 | Longest |\n|---|---:|---:|---:|---:|\n";
    const auto line = [&](const char *name, bool withOutOfTurn) {
        const std::vector<double> times = timesMet(result.answers, withOutOfTurn);
        text << "| " << name;
        for (const double share : {0.5, 0.99, 0.999, 1.0})
            text << " | " << quantile(times, share);
        text << " |\n";
    };
    line("as met", true);
    line("without waiting for a processor", false);
    return text.str();
}

/// The longest that the program itself is to blame for, or that somebody would have noticed.
std::string tableOfStalls(const SoakResult &result) {
    std::vector<LoopWatch::Answer> stalls = result.answers;
    const auto own = [](const LoopWatch::Answer &each) { return each.took - each.outOfTurn; };
    std::erase_if(stalls, [&](const auto &each) { return own(each) <= budget; });
    std::sort(stalls.begin(), stalls.end(),
              [&](const auto &one, const auto &other) { return own(one) > own(other); });
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << stalls.size() << " of " << result.answers.size()
         << " answers took more than " << budget << " ms without waiting for a processor.\n\n"
         << "| At, s | Took, ms | Without waiting | On the processor | Seen | During |\n"
         << "|---:|---:|---:|---:|---|---|\n";
    for (std::size_t index = 0; index < std::min(longest, stalls.size()); ++index) {
        const LoopWatch::Answer &each = stalls[index];
        text << "| " << each.second << " | " << each.took << " | " << own(each) << " | " << each.onCpu
             << " | " << each.state << " | " << each.during << " |\n";
    }
    return text.str();
}

}  // namespace

std::string tablesOf(const SoakResult &result) {
    return tableOfActivities(result) + '\n' + tableOfGrowth(result) + '\n' + tableOfAnswers(result) + '\n' +
           tableOfStalls(result);
}

void keep(const SoakResult &result, const QString &folder) {
    const std::string base = QFile::encodeName(folder).toStdString();
    std::ofstream(base + "/tables.md") << "Seed " << result.seed << ".\n\n" << tablesOf(result);
    std::ofstream samples(base + "/samples.csv");
    samples << "second";
    for (const FigureName &each : figureNames)
        samples << ',' << each.name;
    for (const Holding &sample : result.samples) {
        samples << '\n' << sample.second;
        for (const double value : sample.values)
            samples << ',' << value;
    }
    samples << '\n';
    std::ofstream answers(base + "/answers.csv");
    answers << "second,took,out of turn,on the processor,seen,during\n";
    for (const LoopWatch::Answer &each : result.answers)
        answers << each.second << ',' << each.took << ',' << each.outOfTurn << ',' << each.onCpu << ','
                << each.state << ',' << each.during << '\n';
}

}  // namespace pimloft::test
