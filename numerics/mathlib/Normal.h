// The standard normal cumulative distribution.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace metrisk {

namespace detail {

/// The leading 26 bits of a double, so that a product of two such heads is exact.
constexpr double head(double x) {
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(x) & 0xFFFF'FFFF'F800'0000u);
}

} // namespace detail

/// P(Z <= x), a fraction. Saturates at 0 and 1 and never fails; nan gives nan. Relative error about
/// 1e-15 down to the smallest normal double (x near -37.5). It costs little more than its std::erfc.
///
/// Phi(x) = erfc(-x/sqrt 2)/2. In the lower tail erfc magnifies the relative rounding error of its
/// argument y by about x^2, so that error is found from the exact product and taken back to first
/// order. The logarithmic slope of erfc lies between y + sqrt(y^2 + 4/pi) and y + sqrt(y^2 + 2)
/// (Abramowitz and Stegun 7.1.13); 2 y + 0.1 is near enough for an error of this size.
inline double Normal(double x) noexcept {
    constexpr double k = 0.70710678118654752440; // 1/sqrt 2 = k + kRest
    constexpr double kRest = -4.8336466567264567e-17;
    constexpr double kHead = detail::head(k), kTail = k - kHead;
    const double y = -x * k;
    double content = 0.5 * std::erfc(y);
    if (y > 0.7 && y < 28) {
        const double xHead = detail::head(x), xTail = x - xHead;
        const double excess = (xHead * kHead + y + xHead * kTail + xTail * kHead) + xTail * kTail + x * kRest;
        content += content * (excess * (2 * y + 0.1)); // excess: y less the true argument
    }
    return content;
}

} // namespace metrisk
