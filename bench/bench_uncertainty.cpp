// The process errors table, its samples and coverage factors against the sums they cannot do without.
#include "bench/Floor.h"
#include "desk/compute/RunBiasAnalysis.h"
#include "numerics/CoverageFactor.h"
#include "tests/support/SilentSession.h"
#include "uncertainty/ErrorTable.h"
#include "uncertainty/ProcessTotals.h"
#include "uncertainty/Samples.h"

#include <cmath>
#include <vector>

namespace metrisk::bench {
namespace {

std::vector<double> samples(double centre) {
    std::vector<double> values;
    for (int i = 0; i < maxSampleSize; ++i) values.push_back(centre + 0.01 * std::sin(i * 1.7));
    return values;
}

/// Mean and standard deviation in two plain passes.
void twoPasses(const std::vector<double>& values) {
    double sum = 0;
    for (const double value : values) sum += value;
    const double mean = sum / static_cast<double>(values.size());
    double squares = 0;
    for (const double value : values) squares += (value - mean) * (value - mean);
    benchmark::DoNotOptimize(mean);
    benchmark::DoNotOptimize(std::sqrt(squares / static_cast<double>(values.size() - 1)));
}

void statistics(benchmark::State& state) {
    const std::vector<double> values = samples(10);
    againstFloor(
        state, maxSampleSize, [&] { benchmark::DoNotOptimize(sampleFigures(values)); },
        [&] { twoPasses(values); });
}
BENCHMARK(statistics)->UseManualTime();

void studentsT(benchmark::State& state) {
    const auto degFreedom = static_cast<double>(state.range(0));
    double percent = 90;
    for (auto _ : state) {
        percent = percent < 99.9 ? percent + 0.01 : 90;
        benchmark::DoNotOptimize(CoverageFactor(percent, degFreedom));
    }
}
BENCHMARK(studentsT)->ArgName("degFreedom")->Arg(1)->Arg(4)->Arg(30)->Arg(250)->Arg(1000)->Arg(4999);

/// Nine rows, two samples of 200 and 36 correlations.
void fill(Session& session) {
    Analysis& r = session.record;
    r.SU_Mode = r.MTE_Mode = 10;
    r.SU_UpperOffset = r.SU_LowerOffset = 0.05;
    r.SU_UpperLimit = 10.05;
    r.SU_LowerLimit = 9.95;
    r.SU_PctInTol = r.MTE_PctInTol = 95;
    r.MTE_Offset = 0.02;
    r.MTE_StdUncertainty = 0.0102;
    for (int slot = 1; slot <= 2; ++slot) {
        r.Stat_Flag1[slot] = 1;
        StoreSamples(r, slot, samples(10 + 0.01 * slot), 4, session.regional);
    }
    for (int row = 2; row < errorRowCount; ++row) {
        if (isSampleRow(row)) continue;
        EnterError(r, row, ErrorEntry::DegFreedom, "30", session.regional);
        EnterError(r, row, ErrorEntry::Limit, "0.0" + std::to_string(row), session.regional);
        EnterError(r, row, ErrorEntry::Confidence, "95", session.regional);
    }
    for (int i = 0; i < errorRowCount; ++i)
        for (int j = i + 1; j < errorRowCount; ++j)
            r.CorrelationMatrix[correlationIndex(i)][correlationIndex(j)] = 0.1;
}

void totals(benchmark::State& state) {
    testing::SilentSession silent;
    fill(silent.session);
    const ErrorRows rows = readErrorRows(silent.session.record, silent.session.regional);
    for (auto _ : state)
        benchmark::DoNotOptimize(ComputeTotals(rows, silent.session.record.CorrelationMatrix));
}
BENCHMARK(totals);

void totalsFromTexts(benchmark::State& state) {
    testing::SilentSession silent;
    fill(silent.session);
    for (auto _ : state) SumProcessUncertainty(silent.session.record, silent.session.regional);
}
BENCHMARK(totalsFromTexts);

void biasAnalysis(benchmark::State& state) {
    testing::SilentSession silent;
    fill(silent.session);
    for (auto _ : state) RunBiasAnalysis(silent.session);
    if (!silent.session.record.SMPC_Computed) state.SkipWithError("nothing was computed");
}
BENCHMARK(biasAnalysis);

} // namespace
} // namespace metrisk::bench
