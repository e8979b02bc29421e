#include "risk/LogNormalSearch.h"
#include "numerics/mathlib/InvNorm.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace {

using namespace metrisk;

/// The physical limit after all 1001 passes, one by one.
double everyPass(const LogNormalCase& c) {
    const double a = std::fabs(c.near - c.mode), b = std::fabs(c.far - c.mode), unit = (a + b) / 2;
    const double near = (c.near - c.mode) / unit, far = (c.far - c.mode) / unit;
    const double d = std::exp(-c.pctInTol / 3), span = c.zTailHigh - c.zTailLow;
    const auto guarded = [&](double x) { return std::fabs(x) >= d ? x : x < 0 ? -d : d; };
    const auto errorAt = [&](double q) {
        const double fit = std::log((far - q) / guarded(near - q)) / span, s = fit < d ? d : fit;
        const double r = (near - q) / guarded(-q);
        return std::log(r < d ? d / 100 : r) / s - s - c.zTailLow;
    };
    double sign = c.physLimitBelow ? -1 : 1, step = std::fabs(c.far - c.near) / std::fabs(b - a);
    const double edge = near + d * sign;
    double q = edge + step * sign, error = errorAt(q);
    for (int pass = 0; pass < 1001; ++pass) {
        const double old = error;
        q += step * sign;
        if (c.physLimitBelow ? q > edge : q < edge) q = edge;
        error = errorAt(q);
        const bool turned = (error > 0 && old < 0) || (error < 0 && old > 0);
        const bool worse = (error > 0 && old > 0) || (error < 0 && old < 0) || (error == 0 && old == 0);
        if (turned || (worse && std::fabs(error) > std::fabs(old))) sign = -sign;
        if (turned) step /= std::sqrt(std::numbers::pi);
    }
    return c.mode + unit * q;
}

TEST(LogNormalSearch, RoundsLeftOutChangeNoBit) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit;
    for (int i = 0; i < 20000; ++i) {
        const double p = 0.02 + 0.979 * unit(random);
        const double nearWidth = std::pow(10, 6 * unit(random) - 3);
        const double farWidth = nearWidth * (1 + std::pow(10, 4 * unit(random) - 3));
        LogNormalCase c{.mode = std::pow(10, 4 * unit(random)), .physLimitBelow = i % 2 == 0};
        c.pctInTol = 100 * p;
        c.zTailLow = InvNorm((1 - p) / 2);
        c.zTailHigh = InvNorm(1 - (1 - p) / 2);
        c.near = c.physLimitBelow ? c.mode - nearWidth : c.mode + nearWidth;
        c.far = c.physLimitBelow ? c.mode + farWidth : c.mode - farWidth;
        ASSERT_EQ(searchLogNormal(c).physicalLimit, everyPass(c))
            << nearWidth << ", " << farWidth << ", " << p;
    }
}

} // namespace
