#include "numerics/GammaRate.h"

#include "base/DecimalForm.h"
#include "base/Real.h"

#include <cmath>

namespace metrisk {

namespace {

constexpr double firstUpperPoint = 0.001;
constexpr double equalTargets = 1e-10;
constexpr double closeEnough = 1e-9;
constexpr int shownDecimals = 4;

void solve(double& lambda, Real c, Real target, bool& failed) {
    const auto g = [&](Real x) { return target - c * exp(-x) * (1 + x + x * x / 2 + x * x * x / 6); };

    const bool below = g(0) < 0; // never 0: target and c differ
    // Without a change of sign the doubling ends in overflow, within some 400 passes.
    const auto changed = [&](Real value) { return below ? value > 0 : value < 0; };
    Real upper = firstUpperPoint;
    while (!changed(g(upper))) upper *= 2;

    // A search that cannot come close ends when the width has been halved to exactly 0.
    Real width = upper, low = 0, point = 0, value;
    do {
        width /= 2;
        if (width == 0) {
            failed = true;
            break;
        }
        point = low + width;
        value = g(point);
        if (value < 0) low = point;
    } while (abs(value) >= closeEnough);
    lambda = roundedToDecimals(point.value(), shownDecimals);
}

} // namespace

void SolveGammaRate(double& lambda, double c, double target, bool& failed) noexcept {
    failed = false;
    if (std::fabs(c - target) < equalTargets) {
        lambda = 0;
        return;
    }
    try {
        solve(lambda, c, target, failed);
    } catch (const RuntimeFault&) {
        failed = true;
    }
}

} // namespace metrisk
