// Opening a units database and filling a box of units, as a share of a frame of 16 ms.
#include "tests/support/TemporaryFolder.h"
#include "units/database/UnitsDatabase.h"

#include <benchmark/benchmark.h>
#include <chrono>

namespace metrisk::bench {
namespace {

std::vector<AreaContent> content(int areas, int unitsEach) {
    std::vector<AreaContent> all;
    for (int i = 0; i < areas; ++i) {
        AreaContent& area =
            all.emplace_back("Measurement area " + std::to_string(i), std::vector<MeasurementUnit>());
        for (int j = 0; j < unitsEach; ++j)
            area.units.push_back({.symbol = "unit " + std::to_string(j),
                                  .description = "one of many units of the area",
                                  .group = j % 2 ? "other" : "",
                                  .multiplier = 1.0 + (j * 7919) % unitsEach});
    }
    return all;
}

/// Runs the work and tells the slowest pass as a share of a frame.
template <class Work>
void withinAFrame(benchmark::State& state, Work work) {
    using Clock = std::chrono::steady_clock;
    double slowest = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        work();
        slowest = std::max(slowest, std::chrono::duration<double>(Clock::now() - start).count());
    }
    state.counters["slowest_of_frame"] = slowest / 0.016;
}

void openAndFill(benchmark::State& state) {
    const testing::TemporaryFolder folder;
    const auto path = folder / "units.mdb";
    const auto areas = static_cast<int>(state.range(0));
    makeUnitsDatabase(path, content(areas, static_cast<int>(state.range(1))));
    const std::string area = "Measurement area " + std::to_string(areas / 2);
    withinAFrame(state, [&] {
        const auto units = openUnitsDatabase(path);
        benchmark::DoNotOptimize(units->areas());
        if (units->unitsOf(area).size() != static_cast<std::size_t>(state.range(1)))
            state.SkipWithError("the area is not whole");
    });
}
BENCHMARK(openAndFill)
    ->Unit(benchmark::kMillisecond)
    ->ArgNames({"areas", "units"})
    ->Args({50, 200})
    ->Args({1000, 100});

/// Each is read in a process of its own.
void openForeign(benchmark::State& state, const char* name) {
    const std::string path = METRISK_SOURCE_DIR "/tests/units/data/" + std::string(name);
    withinAFrame(state, [&] { benchmark::DoNotOptimize(openUnitsDatabase(path)->unitsOf("Voltage")); });
}
BENCHMARK_CAPTURE(openForeign, jet3, "units-jet3.mdb")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openForeign, jet4, "units-jet4.mdb")->Unit(benchmark::kMillisecond);

void mergeTable(benchmark::State& state) {
    const testing::TemporaryFolder folder;
    const auto table = content(1000, 100);
    makeUnitsDatabase(folder / "units.mdb", table);
    const auto units = openUnitsDatabase(folder / "units.mdb");
    for (auto _ : state) benchmark::DoNotOptimize(units->merge(table));
}
BENCHMARK(mergeTable)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace metrisk::bench
