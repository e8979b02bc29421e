#include "numerics/SpecialFunctions.h"

#include "base/Real.h"
#include "numerics/mathlib/Gamma.h"
#include "numerics/mathlib/StudentsT.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

namespace metrisk {

namespace {

Real logGamma(Real x) {
    return Gammln(x.value());
}

} // namespace

double BetaI(double a, double b, double x) {
    if (x < 0 || x > 1) throw RuntimeFault(FaultKind::Argument, "BetaI", x);
    const Real p = a, q = b, r = x;
    Real bt = 0;
    if (x != 0 && x != 1) bt = exp(logGamma(p + q) - logGamma(p) - logGamma(q) + p * log(r) + q * log(1 - r));
    if (r < (p + 1) / (p + q + 2)) return (bt * BetaContinuedFraction(a, b, x) / p).value();
    return (1 - bt * BetaContinuedFraction(b, a, 1 - x) / q).value();
}

double BetaContinuedFraction(double a, double b, double x) {
    const Real p = a, q = b, r = x;
    const Real qab = p + q, qap = p + 1, qam = p - 1;
    Real am = 1, bm = 1, az = 1, bz = 1 - qab * r / qap;
    for (int pass = 1; pass <= 1000; ++pass) {
        const Real m = pass, tem = m + m;
        Real d = m * (q - m) * r / ((qam + tem) * (p + tem));
        const Real ap = az + d * am, bp = bz + d * bm;
        d = -(p + m) * (qab + m) * r / ((p + tem) * (qap + tem));
        const Real app = ap + d * az, bpp = bp + d * bz;
        const Real aold = az;
        am = ap / bpp;
        bm = bp / bpp;
        az = app / bpp;
        bz = 1;
        if (abs(az - aold) < 1e-10 * abs(az)) break;
    }
    return az.value();
}

double LowerGammaSeries(double a, double x) {
    if (a == 0) throw RuntimeFault(FaultKind::Argument, "LowerGammaSeries", a);
    const Real p = a, r = x;
    Real term = pow(r, p) / p, sum = term;
    // The factor x/n brings every finite term below the bound unless the sum overflows first.
    for (std::int32_t n = 0; abs(term) >= 1e-12;) {
        if (n == std::numeric_limits<std::int32_t>::max())
            throw RuntimeFault(FaultKind::Endless, "LowerGammaSeries", x);
        ++n;
        term = -term * r * (n + p - 1) / ((n + p) * n);
        sum += term;
    }
    return sum.value();
}

double InverseStudentT(double nu, double p) {
    const auto excess = [&](double t) {
        const Real n = nu, square = Real(t) * t;
        return 1 - BetaI((n / 2).value(), 0.5, (n / (n + square)).value()) - p;
    };
    constexpr double near = 1e-11;

    const double t0 = StudentsT(nu, (1 + p) / 2);
    if (t0 == 0) return 0;
    if (std::fabs(excess(t0)) < near) return t0;

    const double high = 2 * t0;
    double low = t0 / 2;
    if (!(excess(low) < 0)) low /= 2;
    double dx = high - low, t = low;
    for (int pass = 0; pass < 200; ++pass) {
        dx /= 2;
        t = low + dx;
        const double g = excess(t);
        if (g < 0) low = t;
        if (std::fabs(g) < near) break;
    }
    return t;
}

double DensityAt(double x, std::string_view name, double sigma, double centre, double nu) {
    if (!(sigma > 0)) return 0;
    const Real distance = Real(x) - centre, scale = sigma;
    if (name == "Normal")
        return (exp(-distance * distance / (2 * scale * scale)) / (std::sqrt(2 * std::numbers::pi) * scale))
            .value();
    if ((name == "t" || name == "Student's t") && nu >= 1) {
        const Real n = nu, u = distance / scale;
        const Real c = exp(logGamma((n + 1) / 2) - logGamma(n / 2)) / sqrt(std::numbers::pi * (n + 1));
        return (c * pow(1 + u * u / n, -(n + 1) / 2)).value();
    }
    return 0;
}

} // namespace metrisk
