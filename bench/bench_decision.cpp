// Readings, worst cases and strategies against the exact risks of one test, which a decision goes with.
#include "bench/Floor.h"
#include "risk/decision/Decide.h"
#include "risk/decision/Strategies.h"
#include "risk/decision/WorstCase.h"

namespace {

using namespace metrisk;
using namespace metrisk::bench;

DecisionBasis normalTest() {
    return *decisionBasis(
        {.upperOffset = 1, .lowerOffset = 1, .upperLimit = 1, .lowerLimit = -1, .pctInTol = 90}, 0.15, 0);
}

DecisionBasis logNormalTest() {
    return *decisionBasis({.mode = 20,
                           .upperOffset = 0.5,
                           .lowerOffset = 0.3,
                           .upperLimit = 20.5,
                           .lowerLimit = 19.7,
                           .pctInTol = 88},
                          0.051, 0);
}

DecisionBasis physicalTest() {
    return *decisionBasis({.mode = 1,
                           .upperOffset = 1,
                           .upperLimit = 2,
                           .pctInTol = 90,
                           .sides = Sides::Upper,
                           .physicalLimitRequired = true,
                           .physicalLimit = 0.2},
                          0.2, 0);
}

template <class Work>
void besideRisks(benchmark::State& state, const DecisionBasis& basis, Work work) {
    againstFloor(state, 1, work, [&] {
        benchmark::DoNotOptimize(guardedRisks(*basis.fit, basis.sigma, basis.testLimits()));
    });
}

void decision(benchmark::State& state, const DecisionBasis& basis, const char* text, bool prior) {
    const DecisionRule rule = *decisionRuleOf(text);
    const double reading = basis.subject.mode + 0.9 * basis.subject.upperOffset;
    // A thousand, since one is as short as a look at the clock.
    againstFloor(
        state, 1000,
        [&] {
            for (int i = 0; i < 1000; ++i)
                benchmark::DoNotOptimize(decide(basis, reading, rule, prior ? &*basis.fit : nullptr));
        },
        [&] {
            for (int i = 0; i < 1000; ++i)
                benchmark::DoNotOptimize(guardedRisks(*basis.fit, basis.sigma, basis.testLimits()));
        });
}
BENCHMARK_CAPTURE(decision, simple, normalTest(), "simple", false)->UseManualTime();
BENCHMARK_CAPTURE(decision, guard, normalTest(), "guard=1", false)->UseManualTime();
BENCHMARK_CAPTURE(decision, level, normalTest(), "pc=0.95", false)->UseManualTime();
BENCHMARK_CAPTURE(decision, normalPrior, normalTest(), "guard=1", true)->UseManualTime();
BENCHMARK_CAPTURE(decision, logNormalPrior, physicalTest(), "guard=1", true)->UseManualTime();
BENCHMARK_CAPTURE(decision, logNormalTwoSidedPrior, logNormalTest(), "guard=1", true)->UseManualTime();

void worst(benchmark::State& state, const DecisionBasis& basis) {
    besideRisks(state, basis,
                [&] { benchmark::DoNotOptimize(worstCase(basis, Convention::Producer, wholeRange(basis))); });
}
BENCHMARK_CAPTURE(worst, normal, normalTest())->UseManualTime();
BENCHMARK_CAPTURE(worst, logNormal, physicalTest())->UseManualTime();
BENCHMARK_CAPTURE(worst, logNormalTwoSided, logNormalTest())->UseManualTime();

void strategies(benchmark::State& state, const DecisionBasis& basis) {
    besideRisks(state, basis, [&] {
        for (const Strategy strategy : allStrategies)
            benchmark::DoNotOptimize(strategyRow(basis, strategy, {.falseReject = 0.1}));
    });
}
BENCHMARK_CAPTURE(strategies, normal, normalTest())->UseManualTime();
BENCHMARK_CAPTURE(strategies, logNormal, physicalTest())->UseManualTime();
BENCHMARK_CAPTURE(strategies, logNormalTwoSided, logNormalTest())->UseManualTime();

} // namespace
