// The special functions against the standard library calls that are their floor.
#include "bench/Floor.h"
#include "numerics/GaussLegendre.h"
#include "numerics/SpecialFunctions.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/Normal.h"
#include "numerics/mathlib/NormalArray.h"
#include "numerics/mathlib/StudentsT.h"

#include <array>
#include <cmath>

namespace metrisk::bench {
namespace {

constexpr std::size_t count = 1000;
using Arguments = std::array<double, count>;

/// Ascending, as the nodes of an integral give them.
Arguments ascending(double from, double to) {
    Arguments x;
    for (std::size_t i = 0; i < count; ++i)
        x[i] = from + (to - from) * (static_cast<double>(i) + 0.5) / count;
    return x;
}

/// f over all arguments; the sum keeps the compiler from dropping any call.
template <class F>
auto sumOver(const Arguments& arguments, F f) {
    return [&arguments, f] {
        double sum = 0;
        for (double x : arguments) sum += f(x);
        benchmark::DoNotOptimize(sum);
    };
}

void normal(benchmark::State& state) {
    const auto bound = static_cast<double>(state.range(0));
    const Arguments x = ascending(-bound, bound);
    Arguments y;
    for (std::size_t i = 0; i < count; ++i) y[i] = -x[i] / std::sqrt(2.0);
    againstFloor(state, count, sumOver(x, [](double v) { return Normal(v); }),
                 sumOver(y, [](double v) { return std::erfc(v); }));
}
BENCHMARK(normal)->ArgName("bound")->Arg(3)->Arg(6)->Arg(37)->Arg(1000)->UseManualTime();

void normalArray(benchmark::State& state) {
    const auto bound = static_cast<double>(state.range(0));
    const Arguments x = ascending(-bound, bound);
    Arguments y, content;
    for (std::size_t i = 0; i < count; ++i) y[i] = -x[i] / std::sqrt(2.0);
    againstFloor(
        state, count,
        [&] {
            Normal(x.data(), content.data(), count);
            benchmark::DoNotOptimize(content);
        },
        sumOver(y, [](double v) { return std::erfc(v); }));
}
BENCHMARK(normalArray)->ArgName("bound")->Arg(3)->Arg(6)->Arg(37)->Arg(1000)->UseManualTime();

/// The floor is the logarithm and the root that the tails cannot do without.
void inverseNormal(benchmark::State& state) {
    const Arguments p = ascending(0, 1);
    againstFloor(state, count, sumOver(p, [](double v) { return InvNorm(v); }),
                 sumOver(p, [](double v) { return std::sqrt(-std::log(v)); }));
}
BENCHMARK(inverseNormal)->UseManualTime();

/// The floor is the quantile that the search starts from.
void inverseStudentT(benchmark::State& state) {
    const auto nu = static_cast<double>(state.range(0));
    const Arguments p = ascending(0.01, 0.999);
    againstFloor(state, count, sumOver(p, [nu](double v) { return InverseStudentT(nu, v); }),
                 sumOver(p, [nu](double v) { return StudentsT(nu, (1 + v) / 2); }));
}
BENCHMARK(inverseStudentT)->ArgName("nu")->Arg(1)->Arg(10)->Arg(250)->Arg(4999)->UseManualTime();

/// Moving the cached nodes of 100 points to an interval; the floor is copying them.
void moveNodes(benchmark::State& state) {
    NodeSet<100> nodes;
    double end = 1;
    againstFloor(
        state, 100,
        [&] {
            GaussLegendreNodes(-2, end += 1e-9, nodes);
            benchmark::DoNotOptimize(nodes);
        },
        [&] {
            nodes = unitNodes<100>();
            benchmark::DoNotOptimize(nodes);
        });
}
BENCHMARK(moveNodes)->UseManualTime();

} // namespace
} // namespace metrisk::bench
