// SPDX-License-Identifier: MIT
#include "measures.h"

#include "platform/displays/displays.h"
#include "windowsnap/snap_zone.h"

#include <benchmark/benchmark.h>

namespace pimloft::bench {

namespace {

std::vector<Display> threeDisplays() {
    const QRectF frame(0, 0, 1920, 1080);
    std::vector<Display> displays;
    for (int i = 0; i < 3; ++i)
        displays.push_back({DisplayId(i + 1), frame.translated(i * 1920, 0), frame.translated(i * 1920, 0)});
    return displays;
}

void detectZone(benchmark::State &state) {
    const std::vector<Display> displays = threeDisplays();
    double x = 0;
    for (auto _ : state) {
        x = x < 1919 ? x + 1 : 0;
        benchmark::DoNotOptimize(detect({x, 1079}, displays.front(), 10, displays));
    }
}
BENCHMARK(detectZone)->Name("zone under the pointer, 3 displays");

/// Hands every run to our own table.
class Collector : public benchmark::BenchmarkReporter {
public:
    explicit Collector(Table &table) : table_(table) {}
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override {
        Figure figure{
            QString::fromStdString(runs.front().run_name.function_name), QStringLiteral("ns"), {}, {}};
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
