#include "numerics/GammaRate.h"

#include "numerics/Real.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace metrisk {

namespace {

constexpr double firstUpperPoint = 0.001;
constexpr double equalTargets = 1e-10;
constexpr double closeEnough = 1e-9;

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
    lambda = roundedToFourDecimals(point.value());
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

double roundedToFourDecimals(double value) noexcept {
    // d.dddddddddddddde[+-]xx
    char text[32];
    const char* const start = text + (std::signbit(value) ? 1 : 0);
    const char* const end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 14).ptr;
    if (!std::isfinite(value) || value == 0) return value;
    std::int64_t digits = 0;
    const char* c = start;
    for (; *c != 'e'; ++c)
        if (*c != '.') digits = digits * 10 + (*c - '0');
    int exponent = 0;
    std::from_chars(c[1] == '+' ? c + 2 : c + 1, end, exponent);

    const int dropped = 10 - exponent; // of the 15 digits, those behind the fourth decimal
    if (dropped > 15) return std::copysign(0.0, value);
    if (dropped <= 0) { // all 15 digits stay
        double kept = value;
        std::from_chars(text, end, kept);
        return kept;
    }
    std::int64_t unit = 1;
    for (int i = 0; i < dropped; ++i) unit *= 10;
    const auto tenThousandths = static_cast<double>((digits + unit / 2) / unit);
    return std::copysign(tenThousandths / 10000, value);
}

} // namespace metrisk
