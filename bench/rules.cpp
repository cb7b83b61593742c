// SPDX-License-Identifier: MIT
#include "measures.h"

#include <benchmark/benchmark.h>

namespace pimloft::bench {

namespace {

/// What a rule may cost. The others only inform.
std::optional<double> nanosecondsFor(const std::string &name) {
    if (name == "handleADragEvent")
        return 10000;
    const bool isKeyDecision = name == "decideAKey" || name == "decideAKeyThatAllRulesAreAbout";
    return isKeyDecision ? std::optional(1000.0) : std::nullopt;
}

/// Hands every run to our own table.
class Collector : public benchmark::BenchmarkReporter {
public:
    explicit Collector(Table &table) : table_(table) {}
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override {
        const std::string name = runs.front().benchmark_name();
        Figure figure{QString::fromStdString(name.substr(0, name.find("/min_time"))),
                      QStringLiteral("ns"),
                      nanosecondsFor(runs.front().run_name.function_name),
                      {}};
        for (const Run &run : runs)
            if (run.run_type == Run::RT_Iteration)
                figure.samples.push_back(run.GetAdjustedRealTime());
        if (!figure.samples.empty())  // what is left are the library's own averages
            table_.add(figure);
    }

private:
    Table &table_;
};

}  // namespace

void measureRules(Table &table, Extent extent) {
    std::string name = "pimloft_bench";
    std::string repetitions = extent.quick ? "--benchmark_repetitions=5" : "--benchmark_repetitions=50";
    std::string time = "--benchmark_min_time=0.02";
    char *arguments[] = {name.data(), repetitions.data(), time.data()};
    int count = std::size(arguments);
    benchmark::Initialize(&count, arguments);
    Collector collector(table);
    benchmark::RunSpecifiedBenchmarks(&collector);
}

}  // namespace pimloft::bench
