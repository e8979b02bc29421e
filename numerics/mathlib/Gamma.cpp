#include "numerics/mathlib/Gamma.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

namespace metrisk {

namespace {

constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr double halfLogTwoPi = 0.91893853320467274178;

// (-1)^k (zeta(k) - 1)/k for k = 2, 3, ...
constexpr std::array zetaTerms = {
    0.32246703342411321824,    -0.067352301053198095133,   0.020580808427784547879,
    -0.0073855510286739852663, 0.0028905103307415232858,   -0.0011927539117032609771,
    0.00050966952474304242234, -0.00022315475845357937976, 0.000099457512781808533715,
    -0.0000449262367381331417, 0.000020507212775670691553, -9.439488275268395904e-6,
    4.3748667899074878042e-6,  -2.0392157538013662368e-6,  9.5514121304074198329e-7,
    -4.4924691987645660433e-7, 2.1207184805554665869e-7,   -1.0043224823968099609e-7,
    4.7698101693639805658e-8,  -2.271109460894316491e-8,   1.0838659214896954091e-8,
    -5.1834750419700466551e-9, 2.4836745438024783172e-9,   -1.1921401405860912074e-9,
    5.7313672416788620133e-10, -2.7595228851242331452e-10, 1.3304764374244489481e-10};

/// ln Gamma(2 + e) for |e| <= 1/2 (Abramowitz and Stegun 6.1.33, shifted by one): a factor e stands
/// before the whole sum, so the zero at e = 0 costs no digits.
double logGammaNearTwo(double e) {
    double sum = 0;
    for (std::size_t i = zetaTerms.size(); i-- > 0;) sum = (sum + zetaTerms[i]) * e;
    return e * (1 - std::numbers::egamma + sum);
}

/// ln(1 + u) - u for u > -1.
double log1pRest(double u) {
    if (std::fabs(u) > 0.25) return std::log1p(u) - u;
    // ln(1 + u) = 2 artanh(v), v = u/(2 + u), of which 2 v - u = -u v.
    const double v = u / (2 + u), square = v * v;
    double power = v * square, sum = 0;
    for (int k = 3; std::fabs(power) > epsilon * std::fabs(sum) * 0.1 && k < 60; k += 2, power *= square)
        sum += power / k;
    return 2 * sum - u * v;
}

/// x^a e^-x / Gamma(a + 1); the exponent of a large a is formed without cancelling.
double gammaFront(double a, double x) {
    if (a < 10) return std::exp(a * std::log(x) - x - Gammln(a + 1));
    return std::exp(a * log1pRest((x - a) / a) - stirlingRest(a)) / std::sqrt(2 * std::numbers::pi * a);
}

/// P(a, x) by its power series, for x < a + 1; all terms are positive and fall from the first on.
double lowerBySeries(double a, double x) {
    double term = 1, sum = 1;
    for (double n = a + 1; term > sum * epsilon * 0.1; n += 1) sum += term *= x / n;
    return gammaFront(a, x) * sum;
}

/// Q(a, x) by Legendre's continued fraction in the modified form of Lentz, for x >= a + 1.
double upperByFraction(double a, double x) {
    constexpr double tiny = 1e-300;
    double b = x + 1 - a, c = 1 / tiny, d = 1 / b, fraction = d, step = 0;
    // The steps approach 1 in some sqrt(a) passes; a is bounded by the caller.
    for (double n = 1; std::fabs(step - 1) > epsilon && n < 1e7; n += 1) {
        const double an = n * (a - n);
        b += 2;
        d = an * d + b;
        if (d == 0) d = tiny;
        c = b + an / c;
        if (c == 0) c = tiny;
        d = 1 / d;
        step = d * c;
        fraction *= step;
    }
    return gammaFront(a, x) * a * fraction;
}

/// P(a, x) for a so large that the passes above, some sqrt(a), would be too many: the leading terms of
/// Temme's uniform expansion (DLMF 8.12).
double lowerForLargeA(double a, double x) {
    const double u = (x - a) / a;
    const double eta = std::copysign(std::sqrt(-2 * log1pRest(u)), u);
    const double rest = std::exp(-0.5 * a * eta * eta) / std::sqrt(2 * std::numbers::pi * a) *
                        (std::fabs(u) < 1e-3 ? -1.0 / 3 + eta / 12 : 1 / u - 1 / eta);
    return 0.5 * std::erfc(-eta * std::sqrt(a / 2)) - rest;
}

} // namespace

double stirlingRest(double x) noexcept {
    const double r = 1 / (x * x);
    return (1.0 / 12 -
            r * (1.0 / 360 -
                 r * (1.0 / 1260 - r * (1.0 / 1680 - r * (1.0 / 1188 - r * (691.0 / 360360 - r / 156)))))) /
           x;
}

double Gammln(double x) noexcept {
    if (!(x > 0)) return x == 0 ? std::numeric_limits<double>::infinity() : std::nan("");
    if (x >= 10) return (x - 0.5) * (std::log(x) - 1) + (halfLogTwoPi - 0.5) + stirlingRest(x);
    if (x < 0.5) return logGammaNearTwo(x) - std::log1p(x) - std::log(x);
    if (x < 1.5) return logGammaNearTwo(x - 1) - std::log1p(x - 1);
    double product = 1;
    while (x > 2.5) product *= x -= 1;
    return logGammaNearTwo(x - 2) + std::log(product);
}

double Gammp(double a, double x) noexcept {
    if (!(a > 0) || !(x >= 0)) return std::nan("");
    if (x == 0) return 0;
    if (std::isinf(x)) return 1;
    if (a > 1e10) return lowerForLargeA(a, x);
    return x < a + 1 ? lowerBySeries(a, x) : 1 - upperByFraction(a, x);
}

} // namespace metrisk
