#include "numerics/mathlib/NormalArray.h"

#include "numerics/mathlib/Normal.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

// One loop, compiled for wider registers as well; the choice is made when the program is loaded. No
// multiplication is fused with an addition in either, so both give the same bits. Sanitizers run before
// the choice can be made.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__) &&     \
    !defined(__SANITIZE_THREAD__)
#define METRISK_WIDE_REGISTERS __attribute__((target_clones("avx2", "default")))
#else
#define METRISK_WIDE_REGISTERS
#endif

namespace metrisk {

namespace {

constexpr double farthest = 38.8; // beyond, Phi(-a) is 0 in double precision
constexpr double shift = 5;

// (a + shift) exp(a^2/2) Phi(-a) as a polynomial in u, which runs from -1 at a = 0 to 1 at a = farthest:
// u = uScale a/(a + shift) - 1. Chebyshev interpolation at 48 points in 50 digits, cut off where the
// next coefficient is 1.4e-19.
constexpr double uScale = 2 * (farthest + shift) / farthest;
constexpr std::array tail = {0.8521003162816833366,    -0.7013821226254276876,    0.4839099502514862689,
                             -0.2770328246232920899,   0.1285033371986484149,     -0.04587728435978714721,
                             0.01103008605229575691,   -0.0008567713657139375722, -0.0005229140369249704551,
                             0.0001921855400588593237, 4.559066365574926167e-6,   -0.00001770850958346392447,
                             1.831499434550119876e-6,  1.574887347217093664e-6,   -2.913183122883474094e-7,
                             -1.596530147094888603e-7, 3.431364454084287091e-8,   1.905219211401274458e-8,
                             -3.434154273572133216e-9, -2.492792266353965978e-9,  2.640968746383714877e-10,
                             3.000261141368454807e-10, -1.101848535975646492e-11, -2.276770272584573887e-11};

// 1/k!
constexpr std::array exponential = {
    1.0,        1.0,         1.0 / 2,      1.0 / 6,       1.0 / 24,       1.0 / 120,       1.0 / 720,
    1.0 / 5040, 1.0 / 40320, 1.0 / 362880, 1.0 / 3628800, 1.0 / 39916800, 1.0 / 479001600, 1.0 / 6227020800};

/// The polynomial of N coefficients, even and odd powers apart so that two chains run side by side.
template <std::size_t N>
inline double polynomial(const std::array<double, N>& c, double x) {
    static_assert(N % 2 == 0);
    const double square = x * x;
    double even = c[N - 2], odd = c[N - 1];
#pragma GCC unroll 16
    for (std::size_t i = N - 2; i > 0; i -= 2) {
        even = even * square + c[i - 2];
        odd = odd * square + c[i - 1];
    }
    return even + odd * x;
}

/// exp(-a^2/2) for a of 0 to farthest, where it is 0, without a branch or a call for the sake of the loops
/// below. It is left in parts, since a factor must come in before the scale can underflow.
struct Gaussian {
    double mantissa;
    double power;
    double unscale;

    explicit Gaussian(double a) {
        // The square being taken exactly in two parts, exp(-a^2/2) = 2^n exp(rest) with |rest| < 0.35.
        // ln 2 is taken in two parts as well, the first so short that n times it is exact.
        const double aHead = detail::head(a);
        const double half = 0.5 * aHead * aHead, halfRest = 0.5 * ((a - aHead) * (a + aHead));
        constexpr double log2e = 1.44269504088896338700;
        constexpr double ln2Head = 6.93147180369123816490e-01, ln2Tail = 1.90821492927058770002e-10;
        constexpr double toInteger = 0x1.8p52; // added, it leaves the rounded integer in the lowest bits
        const double shifted = toInteger - half * log2e, n = shifted - toInteger;
        const double rest = ((-half - n * ln2Head) - n * ln2Tail) - halfRest;
        mantissa = polynomial(exponential, rest);
        // 2^(n + 128): with n down to -1086 the products with it stay clear of the slow subnormal numbers.
        power = std::bit_cast<double>((std::bit_cast<std::uint64_t>(shifted) + (1023 + 128)) << 52);
        unscale = a < farthest ? 0x1p-128 : 0; // a plain 0 is cheaper than an underflow
    }

    double times(double factor) const { return mantissa * factor * power * unscale; }
};

inline double distance(double x) {
    const double a = std::fabs(x);
    return a > farthest ? farthest : a;
}

inline double normalContent(double x) {
    const double a = distance(x);
    const double scaled = polynomial(tail, uScale * a / (a + shift) - 1) / (a + shift);
    const double below = Gaussian(a).times(scaled);
    const double above = 1 - below;
    return x < 0 ? below : above;
}

} // namespace

METRISK_WIDE_REGISTERS
void Normal(const double* x, double* out, std::size_t n) noexcept {
    for (std::size_t i = 0; i < n; ++i) out[i] = normalContent(x[i]);
}

METRISK_WIDE_REGISTERS
void NormalDensity(const double* x, double* out, std::size_t n) noexcept {
    constexpr double inverseRootTwoPi = 0.39894228040143267794;
    for (std::size_t i = 0; i < n; ++i) out[i] = Gaussian(distance(x[i])).times(inverseRootTwoPi);
}

} // namespace metrisk
