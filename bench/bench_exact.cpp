// The second figures against the told computes: four numbers with bounds, floors being told risks of the same
// case.
#include "bench/Floor.h"
#include "bench/Sessions.h"
#include "desk/compute/BaselineRisks.h"
#include "desk/compute/ValidateAndFit.h"
#include "risk/FittedSubject.h"
#include "risk/RiskModel.h"
#include "risk/exact/ExactRatio.h"
#include "risk/exact/ExactRisks.h"

namespace {

using namespace metrisk;
using namespace metrisk::bench;

void fourFigures(benchmark::State& state, const Entry& entry, double ratio) {
    BenchSession s(entry);
    ValidateAndFit(s.session);
    const SubjectBias su = subjectBiasOf(s.record);
    const double mteSigma = su.upperOffset / ratio / 1.96;
    const AcceptanceRange range{-su.lowerOffset, su.upperOffset};
    const RiskModel told(su, mteSigma);
    againstFloor(
        state, 1,
        [&] {
            benchmark::DoNotOptimize(exactRisks(su, mteSigma, range));
            benchmark::DoNotOptimize(exactBaseline(4, 0.72, 0.85));
        },
        [&] { benchmark::DoNotOptimize(risksOf(*told.at(range), 0)); });
}
BENCHMARK_CAPTURE(fourFigures, normal_4, twoSided(95), 4)->UseManualTime();
BENCHMARK_CAPTURE(fourFigures, normal_1000, twoSided(95), 1000)->UseManualTime();
BENCHMARK_CAPTURE(fourFigures, normalUpper_4, singleUpper(95), 4)->UseManualTime();
BENCHMARK_CAPTURE(fourFigures, logNormal_4, unequal(95), 4)->UseManualTime();
BENCHMARK_CAPTURE(fourFigures, logNormal_1000, unequal(95), 1000)->UseManualTime();
BENCHMARK_CAPTURE(fourFigures, exponential_4, physicalLimitAtMode(95), 4)->UseManualTime();
BENCHMARK_CAPTURE(fourFigures, uniform_4, twoSided(100), 4)->UseManualTime();

void baselineAlone(benchmark::State& state) {
    const BaselineModel told(0.72, 0.85);
    againstFloor(
        state, 1, [&] { benchmark::DoNotOptimize(exactBaseline(4, 0.72, 0.85)); },
        [&] { benchmark::DoNotOptimize(risksOf(told.at(4), 0)); });
}
BENCHMARK(baselineAlone)->UseManualTime();

/// The ratio of a risk, near the told one; the floor is a single exact value.
void ratioOfRisk(benchmark::State& state, const ExactRatioQuestion& question) {
    const ExactRisks exact = *exactBaseline(7, question.subjectInTol, question.measuringInTol);
    const double risk = question.onFalseAccept ? exact.falseAccept(question.falseAcceptOption).value
                                               : exact.falseReject().value;
    againstFloor(
        state, 1, [&] { benchmark::DoNotOptimize(exactRatio(question, risk, 7.001)); },
        [&] { benchmark::DoNotOptimize(exactBaseline(7, question.subjectInTol, question.measuringInTol)); });
}
BENCHMARK_CAPTURE(ratioOfRisk, consumer, {0.72, 0.85, true, 0})->UseManualTime();
BENCHMARK_CAPTURE(ratioOfRisk, producer, {0.72, 0.85, true, 1})->UseManualTime();
BENCHMARK_CAPTURE(ratioOfRisk, falseReject, {0.72, 0.85, false, 0})->UseManualTime();

} // namespace
