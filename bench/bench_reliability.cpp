// Solving reliability models against the residuals that their searches cannot do without.
#include "bench/Floor.h"
#include "numerics/ReliabilitySolver.h"
#include "reliability/ReliabilitySolution.h"

#include <vector>

namespace metrisk::bench {
namespace {

/// The points at which a search asks for its residual; none where the model is solved in closed form.
std::vector<double> pointsOf(int model, const PeriodReliability& given) {
    std::vector<double> points;
    if (!reliabilityModel(model)->needsAOP && model != reliability::Gamma) return points;
    ReliabilitySearch search{.model = model, .x = 1};
    const auto residual = [&](double x, double& value) {
        points.push_back(x);
        return value = ReliabilityEquation(given, 1, model, x), true;
    };
    SolveReliabilityEquation(residual, search);
    return points;
}

/// Wanted below 1 ms, or a ratio to the floor of 1.1 at most. `share` is where the mean lies between the
/// ends, in thousandths.
void solve(benchmark::State& state) {
    const int model = static_cast<int>(state.range(0));
    const double bop = reliabilityModel(model)->takesBOP ? 0.99 : 1;
    const double share = static_cast<double>(state.range(1)) / 1000;
    const PeriodReliability given{bop, 0.9 + share * (bop - 0.9), 0.9};
    const std::vector<double> points = pointsOf(model, given);
    againstFloor(
        state, 1,
        [&] {
            PeriodReliability period = given;
            benchmark::DoNotOptimize(solveReliability(model, period, 12).theta);
        },
        [&] {
            double sum = 0;
            try {
                for (const double x : points) sum += ReliabilityEquation(given, 1, model, x);
            } catch (const std::exception&) { // the point at which the search has failed
            }
            benchmark::DoNotOptimize(sum);
        });
    state.counters["residuals"] = static_cast<double>(points.size());
}
BENCHMARK(solve)
    ->ArgNames({"model", "share"})
    ->ArgsProduct({{1, 2, 3, 4, 5, 6, 7, 8}, {10, 380, 990}})
    ->UseManualTime();

} // namespace
} // namespace metrisk::bench
