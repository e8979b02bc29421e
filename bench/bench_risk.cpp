// Risk integrals, fits, searches and whole computes against the library calls or integrals they are
// made of.
#include "bench/Floor.h"
#include "bench/Sessions.h"
#include "desk/compute/BaselineRisks.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/ComputingScreen.h"
#include "desk/compute/EquivalentRatio.h"
#include "desk/compute/ValidateAndFit.h"
#include "numerics/AcceptanceIntegral.h"
#include "numerics/GaussLegendre.h"
#include "numerics/IntegrationLimits.h"
#include "numerics/mathlib/InvNorm.h"
#include "risk/FittedSubject.h"
#include "risk/LogNormalSearch.h"
#include "risk/evaluate/Evaluate.h"
#include "risk/guardband/GuardbandSolver.h"

#include <cmath>
#include <vector>

namespace metrisk::bench {
namespace {

constexpr double eps = 1e-14;

/// The arguments at which an integral calls erfc and exp.
struct Calls {
    std::vector<double> erfc;
    std::vector<double> exp;

    void at(const SubjectBias& su, double lo, double hi, double mteSigma, double u) {
        const bool logNormal = su.distribution == Distribution::LogNormal;
        double unit = 1;
        if (su.distribution == Distribution::Normal) unit = su.sigma;
        if (logNormal) unit = std::fabs(su.mode - su.physicalLimit);
        if (su.distribution == Distribution::Exponential) unit = su.sideOffset();
        const double sm = mteSigma / unit * std::sqrt(2.0);
        double t = u;
        if (logNormal) {
            exp.push_back(su.logSigma * u);
            t = su.logOmega * std::exp(su.logSigma * u);
        }
        if (su.distribution == Distribution::Exponential)
            exp.push_back(-su.expExponent * u);
        else if (su.distribution != Distribution::Uniform)
            exp.push_back(-0.5 * u * u);
        const bool oneTerm = su.caseCode == 1 || su.caseCode == 4 || su.caseCode == 5;
        erfc.push_back((t - hi) / sm);
        if (!oneTerm) erfc.push_back((t - lo) / sm);
    }

    void run() const {
        double sum = 0;
        for (double x : erfc) sum += std::erfc(x);
        for (double x : exp) sum += std::exp(x);
        benchmark::DoNotOptimize(sum);
    }
};

/// Nodes and, where an end is open, the steps of the walk to it.
Calls callsOf(const SubjectBias& su, double lo, double hi, double mteSigma) {
    Calls calls;
    const AcceptanceIntegrand f(su, lo, hi, mteSigma);
    double x1 = 0, x2 = 0;
    JointIntegrationLimits(f, eps, x1, x2);
    const auto nodes = GaussLegendreNodes<100>(x1, x2);
    for (double u : nodes.x) calls.at(su, lo, hi, mteSigma, u);
    if (su.caseCode == 5) {
        const double start = -su.upperOffset / su.sigma;
        double s = start;
        for (const double floor = f.at(start) * eps; floor < f.at(s); s += start / 10)
            calls.at(su, lo, hi, mteSigma, s);
        calls.at(su, lo, hi, mteSigma, start);
        calls.at(su, lo, hi, mteSigma, s);
    }
    return calls;
}

void riskIntegral(benchmark::State& state, const Entry& entry, double lo, double hi) {
    BenchSession s(entry);
    ValidateAndFit(s.session);
    const SubjectBias su = subjectBiasOf(s.record);
    const double mteSigma = s.record.MTE_Sigma;
    const Calls calls = callsOf(su, lo, hi, mteSigma);
    againstFloor(
        state, 1,
        [&] { benchmark::DoNotOptimize(IntegrateAcceptance(Integral::Joint, su, lo, hi, mteSigma)); },
        [&] { calls.run(); });
}
BENCHMARK_CAPTURE(riskIntegral, normal, twoSided(90), -1.6, 1.6)->UseManualTime();
BENCHMARK_CAPTURE(riskIntegral, normalSingleUpper, singleUpper(90), -7.9, 1.28)->UseManualTime();
BENCHMARK_CAPTURE(riskIntegral, logNormal, unequal(90), 0.7, 1.6)->UseManualTime();
BENCHMARK_CAPTURE(riskIntegral, exponential, physicalLimitAtMode(90), 0.0, 1.0)->UseManualTime();
BENCHMARK_CAPTURE(riskIntegral, uniform, twoSided(100), -0.5, 0.5)->UseManualTime();

/// False accept and false reject risk; the floor is the calls of the joint integral.
void bothRisks(benchmark::State& state, const Entry& entry) {
    BenchSession s(entry);
    ValidateAndFit(s.session);
    const SubjectBias su = subjectBiasOf(s.record);
    const RiskModel model(su, s.record.MTE_Sigma);
    const AcceptanceRange range{-su.lowerOffset, su.upperOffset};
    const Calls calls = callsOf(su, -1.6, 1.6, s.record.MTE_Sigma);
    againstFloor(
        state, 1, [&] { benchmark::DoNotOptimize(risksOf(model.at(range).value(), 0)); },
        [&] { calls.run(); });
}
BENCHMARK_CAPTURE(bothRisks, normal, twoSided(95))->UseManualTime();
BENCHMARK_CAPTURE(bothRisks, normalSingleUpper, singleUpper(95))->UseManualTime();
BENCHMARK_CAPTURE(bothRisks, logNormal, unequal(95))->UseManualTime();
BENCHMARK_CAPTURE(bothRisks, uniform, twoSided(100))->UseManualTime();

void baselineIntegral(benchmark::State& state) {
    const double zs = InvNorm(0.86), zm = InvNorm(0.925), k = 4 * zm;
    Calls calls;
    for (double x : GaussLegendreNodes<100>(-zs, zs).x) {
        calls.erfc.push_back(-(x / zs + 1) * k / std::sqrt(2.0));
        calls.erfc.push_back(-(1 - x / zs) * k / std::sqrt(2.0));
        calls.exp.push_back(-0.5 * x * x);
    }
    againstFloor(
        state, 1, [&] { benchmark::DoNotOptimize(BaselineJointProbability(4, zs, zm)); },
        [&] { calls.run(); });
}
BENCHMARK(baselineIntegral)->UseManualTime();

/// A search against its number of passes times one baseline integral.
void ratioSearch(benchmark::State& state) {
    BenchSession s(twoSided(90));
    ValidateAndFit(s.session);
    ComputingScreen screen(s.session);
    double ratio = 0;
    s.ui.reports = 0;
    SolveEquivalentRatio(s.session, screen, {0.012, 0.02}, ratio);
    const int passes = s.ui.reports - 1; // the first report only announces the search
    const double zs = InvNorm(0.86), zm = InvNorm(0.925);
    state.counters["passes"] = passes;
    againstFloor(
        state, 1,
        [&] {
            SolveEquivalentRatio(s.session, screen, {0.012, 0.02}, ratio);
        },
        [&] {
            for (int i = 0; i < passes; ++i)
                benchmark::DoNotOptimize(BaselineJointProbability(ratio + 0.01 * i, zs, zm));
        });
}
BENCHMARK(ratioSearch)->UseManualTime();

/// A search for a risk that no ratio gives, against a single pass.
void unreachableTarget(benchmark::State& state) {
    const RatioQuestion question{.baseline = BaselineModel(0.72, 0.85),
                                 .start = 4,
                                 .target = 0.9999,
                                 .onFalseAccept = true,
                                 .falseAcceptOption = 0};
    againstFloor(
        state, 1,
        [&] {
            double ratio = 0;
            benchmark::DoNotOptimize(searchRatio(question, ratio, [](const SearchPass&) { return true; }));
        },
        [&] { benchmark::DoNotOptimize(question.baseline.at(4)); });
}
BENCHMARK(unreachableTarget)->UseManualTime();

/// A press of the compute button; the floor is its one risk integral.
void fullCompute(benchmark::State& state, bool withSearch) {
    BenchSession s(twoSided(90));
    s.record.ComputeEqRatio = withSearch;
    ComputeResults_Click(s.session);
    const SubjectBias su = subjectBiasOf(s.record);
    againstFloor(
        state, 1,
        [&] {
            s.record.RisksNeedCompute = true;
            ComputeResults_Click(s.session);
        },
        [&] {
            benchmark::DoNotOptimize(IntegrateAcceptance(Integral::Joint, su, -1.6, 1.6, s.record.MTE_Sigma));
        });
}
/// The same from entries to figures, without a session; the floor as above.
void evaluateEntries(benchmark::State& state, const Wanted& wanted) {
    BenchSession s(twoSided(90));
    ValidateAndFit(s.session);
    const TestEntries entries = *entriesOf(s.record, {});
    const SubjectBias su = subjectBiasOf(s.record);
    againstFloor(
        state, 1, [&] { benchmark::DoNotOptimize(evaluate(entries, wanted)); },
        [&] {
            benchmark::DoNotOptimize(IntegrateAcceptance(Integral::Joint, su, -1.6, 1.6, s.record.MTE_Sigma));
        });
}
BENCHMARK_CAPTURE(evaluateEntries, risks, {})->UseManualTime();
BENCHMARK_CAPTURE(evaluateEntries, withExact, {.exact = true})->UseManualTime();
BENCHMARK_CAPTURE(evaluateEntries, withSearch, {.ratio = true})->UseManualTime();

/// A thousand tests that all differ, one after another in one thread; the floor is the two risks of each. Of
/// each hundred of the mix, 60 are normal, 15 LogNormal, 15 single-sided, 5 have a physical limit, 5 are
/// uniform.
void manyTests(benchmark::State& state, bool mixed, const Wanted& wanted) {
    const auto kind = [&](int i) {
        const int share = mixed ? i * 37 % 100 : 0;
        const double pct = 70 + i * 7.3 - std::floor(i * 7.3 / 29) * 29;
        if (share < 60) return twoSided(pct);
        if (share < 75) return unequal(pct);
        if (share < 90) return singleUpper(pct);
        if (share < 95) return testing::withPhysicalLimit(testing::Kind::SingleUpper, 10, 0.5, 9.2, pct);
        return twoSided(100);
    };
    std::vector<TestEntries> tests;
    std::vector<TestFigures> figures;
    for (int i = 0; i < 1000; ++i) {
        Entry entry = kind(i);
        entry.mteOffset = 0.08 + 0.0002 * i;
        BenchSession s(entry);
        tests.push_back(*entriesOf(s.record, {}));
        figures.push_back(*evaluate(tests.back()));
    }
    againstFloor(
        state, 1000,
        [&] {
            for (const TestEntries& test : tests) benchmark::DoNotOptimize(evaluate(test, wanted));
        },
        [&] {
            for (std::size_t i = 0; i < tests.size(); ++i) {
                const RiskModel model(figures[i].subject, figures[i].mteSigma);
                const SubjectEntry& su = tests[i].subject;
                benchmark::DoNotOptimize(risksOf(*model.at({-su.lowerOffset, su.upperOffset}), 0));
            }
        });
}
BENCHMARK_CAPTURE(manyTests, normal, false, {})->UseManualTime();
BENCHMARK_CAPTURE(manyTests, normalWithSearch, false, {.ratio = true})->UseManualTime();
BENCHMARK_CAPTURE(manyTests, normalWithSearchAndExact, false, {.exact = true, .ratio = true})
    ->UseManualTime();
BENCHMARK_CAPTURE(manyTests, mixWithSearch, true, {.ratio = true})->UseManualTime();

BENCHMARK_CAPTURE(fullCompute, withSearch, true)->UseManualTime();
BENCHMARK_CAPTURE(fullCompute, withoutSearch, false)->UseManualTime();

/// The 1001 passes of the two-sided fit against the two logarithms that each pass takes.
void logNormalFit(benchmark::State& state) {
    const LogNormalCase c{.mode = 10,
                          .near = 9.5,
                          .far = 11,
                          .pctInTol = 90,
                          .zTailLow = InvNorm(0.05),
                          .zTailHigh = InvNorm(0.95),
                          .physLimitBelow = true};
    againstFloor(
        state, 1, [&] { benchmark::DoNotOptimize(searchLogNormal(c)); },
        [&] {
            double sum = 0;
            for (int i = 1; i <= 2 * 1001; ++i) sum += std::log(1 + 1e-4 * i);
            benchmark::DoNotOptimize(sum);
        });
}
BENCHMARK(logNormalFit)->UseManualTime();

/// A solve against as many risks as it asks for.
void guardbandSolve(benchmark::State& state, const Entry& entry, GuardbandTarget target, bool byK) {
    BenchSession s(entry);
    ValidateAndFit(s.session);
    const Analysis& r = s.record;
    GuardbandSolver first(r, r.MTE_Sigma, 0);
    const double m = byK ? 1 : first.multiplierFor(target);
    if (byK) first.kFactorFor(target);
    const RiskModel model(subjectBiasOf(r), r.MTE_Sigma);
    state.counters["evaluations"] = first.evaluations();
    againstFloor(
        state, first.evaluations(),
        [&] {
            GuardbandSolver solver(r, r.MTE_Sigma, 0);
            benchmark::DoNotOptimize(byK ? solver.kFactorFor(target) : solver.multiplierFor(target));
        },
        [&] {
            for (int i = 0; i < first.evaluations(); ++i) {
                const double x = m + 1e-3 * i;
                benchmark::DoNotOptimize(
                    risksOf(model.at({-x * r.SU_LowerOffset, x * r.SU_UpperOffset}).value(), 0));
            }
        });
}
BENCHMARK_CAPTURE(guardbandSolve, normal, twoSided(90), {GuardbandKey::FalseAccept, 0.01}, false)
    ->UseManualTime();
BENCHMARK_CAPTURE(guardbandSolve, normalByK, twoSided(90), {GuardbandKey::FalseAccept, 0.01}, true)
    ->UseManualTime();
BENCHMARK_CAPTURE(guardbandSolve, equalize, twoSided(90), {GuardbandKey::Equalize}, false)->UseManualTime();
BENCHMARK_CAPTURE(guardbandSolve, logNormal, unequal(90), {GuardbandKey::FalseReject, 0.02}, false)
    ->UseManualTime();

} // namespace
} // namespace metrisk::bench
