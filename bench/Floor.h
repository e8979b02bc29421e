// The cost of a piece of work as a ratio to that of the library calls it cannot do without.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <limits>

namespace metrisk::bench {

/// Alternates `work` and `floor` within one benchmark, so that both meet the same clock rate and the
/// same neighbours, and reports the ratio of their fastest passes as "ratio_to_floor". The time shown
/// by the benchmark is that of `work`; items are the elements that one pass handles.
template <class Work, class Floor>
void againstFloor(benchmark::State& state, std::int64_t items, Work work, Floor floor) {
    using Clock = std::chrono::steady_clock;
    const auto seconds = [](auto& pass) {
        const auto start = Clock::now();
        pass();
        return std::chrono::duration<double>(Clock::now() - start).count();
    };
    double bestWork = std::numeric_limits<double>::infinity(), bestFloor = bestWork;
    for (auto _ : state) {
        const double spent = seconds(work);
        state.SetIterationTime(spent);
        bestWork = std::min(bestWork, spent);
        bestFloor = std::min(bestFloor, seconds(floor));
    }
    const auto count = static_cast<double>(items);
    state.SetItemsProcessed(state.iterations() * items);
    state.counters["ns_per_item"] = bestWork / count * 1e9;
    state.counters["floor_ns_per_item"] = bestFloor / count * 1e9;
    state.counters["ratio_to_floor"] = bestWork / bestFloor;
}

} // namespace metrisk::bench
