// Sweeps and maps of risks against the single risks that they consist of.
#include "bench/Floor.h"
#include "bench/Sessions.h"
#include "desk/compute/ValidateAndFit.h"
#include "risk/FittedSubject.h"
#include "risk/SubjectFit.h"
#include "risk/sweeps/RiskMap.h"
#include "risk/sweeps/RiskSweep.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> allocations = 0;

} // namespace

// Not inlined: the compiler would miss the pairs.
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace metrisk::bench {
namespace {

SweepRange rangeOf(Swept swept, std::size_t points) {
    switch (swept) {
    case Swept::Multiplier: return {0.5, 1.1, points};
    case Swept::KFactor: return {0, 1, points};
    case Swept::SubjectPct:
    case Swept::MeasuringPct: return {60, 99.5, points};
    case Swept::BaselineRatio: break;
    }
    return {1, 20, points};
}

constexpr SweepOptions options{.baselineSubjectPct = 72, .baselineMeasuringPct = 85};

/// The 31 points of the screen in one thread; the floor is as many risks of the analysis itself, with a fit
/// before each where each has its own.
void sweep31(benchmark::State& state, const Entry& entry, Swept swept) {
    BenchSession s(entry);
    ValidateAndFit(s.session);
    const Analysis& r = s.record;
    const RiskSweep sweep(r, {}, swept, options);
    const SweepRange range = rangeOf(swept, 31);
    const RiskModel model(subjectBiasOf(r), r.MTE_Sigma);
    const BaselineModel baseline(0.72, 0.85);
    const long before = allocations;
    for (std::size_t i = 0; i < range.points; ++i) benchmark::DoNotOptimize(sweep.at(range.at(i)));
    state.counters["allocations"] = static_cast<double>(allocations - before);
    againstFloor(
        state, 31,
        [&] {
            for (std::size_t i = 0; i < range.points; ++i) benchmark::DoNotOptimize(sweep.at(range.at(i)));
        },
        [&] {
            for (std::size_t i = 0; i < range.points; ++i) {
                const double x = range.at(i);
                if (swept == Swept::SubjectPct) benchmark::DoNotOptimize(fitSubject(r, {}));
                if (swept == Swept::BaselineRatio)
                    benchmark::DoNotOptimize(risksOf(baseline.at(x), 0));
                else
                    benchmark::DoNotOptimize(risksOf(
                        model.at({-(0.5 + x / 200) * r.SU_LowerOffset, (0.5 + x / 200) * r.SU_UpperOffset})
                            .value(),
                        0));
            }
        });
}
BENCHMARK_CAPTURE(sweep31, multiplier, twoSided(90), Swept::Multiplier)->UseManualTime();
BENCHMARK_CAPTURE(sweep31, kFactor, twoSided(90), Swept::KFactor)->UseManualTime();
BENCHMARK_CAPTURE(sweep31, subjectPct, twoSided(90), Swept::SubjectPct)->UseManualTime();
BENCHMARK_CAPTURE(sweep31, measuringPct, twoSided(90), Swept::MeasuringPct)->UseManualTime();
BENCHMARK_CAPTURE(sweep31, baselineRatio, twoSided(90), Swept::BaselineRatio)->UseManualTime();
BENCHMARK_CAPTURE(sweep31, multiplierLogNormal, unequal(90), Swept::Multiplier)->UseManualTime();
BENCHMARK_CAPTURE(sweep31, subjectPctLogNormal, unequal(90), Swept::SubjectPct)->UseManualTime();

/// On all cores, as the smooth curve is computed: within 33 ms.
void smoothCurve(benchmark::State& state, const Entry& entry, Swept swept) {
    BenchSession s(entry);
    ValidateAndFit(s.session);
    const RiskSweep sweep(s.record, {}, swept, options);
    const SweepRange range = rangeOf(swept, 800);
    for (auto _ : state) benchmark::DoNotOptimize(sweep.over(range));
}
BENCHMARK_CAPTURE(smoothCurve, multiplier, twoSided(90), Swept::Multiplier)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(smoothCurve, subjectPctLogNormal, unequal(90), Swept::SubjectPct)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

/// On all cores: 200 points each way within 250 ms, the 50 of a moving slider within 33 ms.
void map(benchmark::State& state, const Entry& entry) {
    BenchSession s(entry);
    ValidateAndFit(s.session);
    const RiskMap map(s.record, {});
    const auto side = static_cast<std::size_t>(state.range(0));
    const MapRequest request{
        {MapQuantity::Ratio, 1, 20}, {MapQuantity::SubjectPct, 60, 99}, side, side, map.present()};
    const long before = allocations;
    benchmark::DoNotOptimize(map.grid(request));
    state.counters["allocations"] = static_cast<double>(allocations - before);
    for (auto _ : state) benchmark::DoNotOptimize(map.grid(request));
}
BENCHMARK_CAPTURE(map, normal, twoSided(90))->Arg(50)->Arg(200)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(map, logNormal, unequal(90))
    ->Arg(50)
    ->Arg(200)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace metrisk::bench
