#include "risk/guardband/Bisection.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double riskTolerance = 1e-8;
constexpr double stepTolerance = riskTolerance / 100;
constexpr int maxHalvings = 100;

bool near(const Residual& f, double share) {
    return std::fabs(f.value) <= std::min(riskTolerance, share * f.scale);
}

} // namespace

double bisect(FunctionRef<Residual(double)> f, double low, double high, const BisectionWords& words) {
    constexpr double stop = 1e-4;
    constexpr double stopWithoutStep = 1e-2;
    const Residual atLow = f(low);
    if (near(atLow, stop)) return low;
    const Residual atHigh = f(high);
    if (near(atHigh, stop)) return high;
    if ((atLow.value < 0) == (atHigh.value < 0)) throw SolveFailure{words.couldNot};

    // From the end at which the function is negative towards the other.
    double root = atLow.value < 0 ? low : high;
    double step = atLow.value < 0 ? high - low : low - high;
    Residual now = atLow;
    double mid = low;
    for (int count = 0; !near(now, stop); ++count) {
        if (count > maxHalvings || std::fabs(step) < stepTolerance) {
            if (near(now, stopWithoutStep)) break;
            throw SolveFailure{words.notPrecise};
        }
        step /= 2;
        mid = root + step;
        now = f(mid);
        if (now.value < 0) root = mid;
    }
    return mid;
}

} // namespace metrisk
