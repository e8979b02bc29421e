// The kernels written over a register of `lanes` doubles. Included by one source for each width, which is
// compiled for the processors that have it: all of it stays in that source, lest another one calls what its
// processor lacks.
#include "numerics/mathlib/ArrayKernels.h"
#include "numerics/mathlib/Polynomials.h"

#include <cstdint>
#include <cstring>
#if defined(__SSE2__)
#include <immintrin.h>
#endif

#define METRISK_INLINE [[gnu::always_inline]] inline
#define METRISK_LOCAL __attribute__((always_inline))

namespace metrisk {
namespace {

using Lanes [[gnu::vector_size(METRISK_LANES * 8)]] = double;
using Bits [[gnu::vector_size(METRISK_LANES * 8)]] = std::int64_t;
constexpr std::size_t lanes = METRISK_LANES;
constexpr std::size_t parts = 4; // of a sum

METRISK_INLINE Lanes load(const double* from) {
    Lanes x;
    std::memcpy(&x, from, sizeof x);
    return x;
}
METRISK_INLINE void store(double* to, Lanes x) {
    std::memcpy(to, &x, sizeof x);
}
METRISK_INLINE Lanes all(double x) {
    return x - Lanes{};
}

/// Which lanes of a comparison are true, a bit each.
METRISK_INLINE int lanesIn(Bits comparison) {
#if defined(__AVX512DQ__) && METRISK_LANES == 8
    return _mm512_movepi64_mask(reinterpret_cast<__m512i>(comparison));
#elif defined(__AVX__) && METRISK_LANES == 4
    return _mm256_movemask_pd(reinterpret_cast<__m256d>(comparison));
#elif defined(__SSE2__) && METRISK_LANES == 2
    return _mm_movemask_pd(reinterpret_cast<__m128d>(comparison));
#else
    int found = 0;
    for (std::size_t i = 0; i < lanes; ++i) found |= comparison[i] ? 1 << i : 0;
    return found;
#endif
}
METRISK_INLINE bool any(Bits comparison) {
    return lanesIn(comparison) != 0;
}

METRISK_INLINE Lanes magnitude(Lanes x) {
    return (Lanes)((Bits)x & INT64_MAX);
}

/// Every fourth power apart, so that four chains run side by side.
template <std::size_t n>
METRISK_INLINE Lanes polynomial(const double (&c)[n], Lanes x) {
    constexpr std::size_t chains = 4;
    const Lanes square = x * x, fourth = square * square;
    Lanes sums[chains];
#pragma GCC unroll 4
    for (std::size_t j = 0; j < chains; ++j) {
        constexpr auto last = [](std::size_t chain) { return (n - 1 - chain) / chains * chains + chain; };
        sums[j] = all(c[last(j)]);
#pragma GCC unroll 8
        for (std::size_t i = last(j); i > j; i -= chains) sums[j] = sums[j] * fourth + c[i - chains];
    }
    return (sums[0] + sums[1] * x) + (sums[2] + sums[3] * x) * square;
}

constexpr double log2e = 1.44269504088896338700;
// ln 2 in two parts, the first so short that an exponent times it is exact.
constexpr double ln2Head = 6.93147180369123816490e-01, ln2Tail = 1.90821492927058770002e-10;
constexpr double toInteger = 0x1.8p52; // added, it leaves the rounded integer in the lowest bits

/// exp(rest) - 1 and exp(rest) for |rest| up to 0.347.
METRISK_INLINE Lanes lessOne(Lanes rest) {
    return rest + rest * rest * polynomial(polynomials::exponentialRest, rest);
}
METRISK_INLINE Lanes exponentialOf(Lanes rest) {
    return 1 + lessOne(rest);
}
/// 2^n of the integer n in the lowest bits of `shifted`, for exponents of normal numbers.
METRISK_INLINE Lanes powerOfTwo(Lanes shifted, std::int64_t more = 0) {
    return (Lanes)(((Bits)shifted + (1023 + more)) << 52);
}

/// exp(-a^2/2) for a not below 0, in two factors: their product can underflow.
struct Gaussian {
    Lanes mantissa;
    Lanes shifted;

    METRISK_INLINE explicit Gaussian(Lanes a) {
        // The square being taken exactly in two parts, exp(-a^2/2) = 2^n exp(rest) with |rest| < 0.35.
        const Lanes head = (Lanes)((Bits)a & ~std::int64_t{0x7FF'FFFF});
        const Lanes half = 0.5 * head * head, halfRest = 0.5 * ((a - head) * (a + head));
        shifted = toInteger - half * log2e;
        const Lanes n = shifted - toInteger;
        mantissa = exponentialOf(((-half - n * ln2Head) - n * ln2Tail) - halfRest);
    }

    /// For a up to 37, where nothing underflows.
    METRISK_INLINE Lanes nearTimes(Lanes factor) const { return mantissa * factor * powerOfTwo(shifted); }
    /// For a up to 38.8, where n is down to -1086: the products stay clear of the slow subnormal numbers.
    METRISK_INLINE Lanes times(Lanes factor) const {
        return mantissa * factor * powerOfTwo(shifted, 128) * 0x1p-128;
    }
};

constexpr double nearest = 8.5;   // so far the short polynomial reaches; beyond, Phi(a) is 1
constexpr double farthest = 38.8; // beyond, Phi(-a) and the density are 0

template <std::size_t n>
METRISK_INLINE Lanes scaledTail(const double (&c)[n], double shift, double slope, Lanes a) {
    const Lanes inverse = 1 / (a + shift);
    return polynomial(c, (shift - slope * a) * inverse) * inverse;
}

METRISK_INLINE Lanes normalOf(Lanes x) {
    using namespace polynomials;
    const Lanes a = magnitude(x);
    const Bits below = x < 0;
    const Bits far = a > nearest;
    Lanes result = below ? all(0) : all(1);
    const int farLanes = lanesIn(far);
    if (farLanes != (1 << lanes) - 1) {
        const Lanes near = far ? all(nearest) : a;
        const Lanes tail = Gaussian(near).nearTimes(scaledTail(nearTail, nearTailShift, nearTailSlope, near));
        const Lanes content = below ? tail : 1 - tail;
        result = far ? result : content;
    }
    if (farLanes != 0) {
        const Bits deep = far & (x > -farthest) & below;
        if (any(deep)) {
            const Lanes there = deep ? a : all(nearest);
            const Lanes tail = Gaussian(there).times(scaledTail(farTail, farTailShift, farTailSlope, there));
            result = deep ? tail : result;
        }
    }
    return result;
}

/// Phi(upper) - Phi(lower). Where upper is not below 0, what lies beyond -8.5 is lost in rounding.
METRISK_INLINE Lanes windowOf(Lanes upper, Lanes lower) {
    const Lanes below = normalOf(upper);
    const Bits counts = ~((upper >= 0) & (lower <= -nearest));
    return any(counts) ? below - normalOf(lower) : below;
}

METRISK_INLINE Lanes densityOf(Lanes x) {
    constexpr double inverseRootTwoPi = 0.39894228040143267794;
    constexpr double underflow = 37;
    const Lanes a = magnitude(x);
    if (!any(a > underflow)) return Gaussian(a).nearTimes(all(inverseRootTwoPi));
    const Bits out = a >= farthest;
    const Lanes density = Gaussian(out ? all(0) : a).times(all(inverseRootTwoPi));
    return out ? all(0) : density;
}

METRISK_INLINE Lanes exponentialAt(Lanes x) {
    constexpr double highest = 709.782712893384, lowest = -745.2;
    const Bits above = x > highest, under = x < lowest;
    const Lanes kept = above | under ? all(0) : x;
    const Lanes shifted = toInteger + kept * log2e, n = shifted - toInteger;
    const Lanes mantissa = exponentialOf((kept - n * ln2Head) - n * ln2Tail);
    // Half the power at a time: n runs from -1075 to 1024.
    const Bits whole = (Bits)shifted - (Bits)all(toInteger);
    const Bits half = whole >> 1;
    const Lanes value = mantissa * (Lanes)((half + 1023) << 52) * (Lanes)((whole - half + 1023) << 52);
    return above ? all(__builtin_inf()) : under ? all(0) : value;
}

METRISK_INLINE Lanes exponentialLessOneAt(Lanes x) {
    constexpr double highest = 709, lowest = -40;
    const Bits above = x > highest, under = x < lowest;
    const Lanes kept = above | under ? all(0) : x;
    const Lanes shifted = toInteger + kept * log2e, n = shifted - toInteger;
    const Lanes rest = (kept - n * ln2Head) - n * ln2Tail, power = powerOfTwo(shifted);
    const Lanes value = power * lessOne(rest) + (power - 1);
    return above ? all(__builtin_inf()) : under ? all(-1) : value;
}

/// f over whole registers; the last one overlaps that before it, or is filled up where there is only one.
template <class F>
METRISK_INLINE void overArray(const double* x, double* out, std::size_t n, F f) {
    if (n < lanes) {
        double few[lanes] = {};
        for (std::size_t j = 0; j < lanes; ++j)
            if (j < n) few[j] = x[j];
        store(few, f(load(few)));
        for (std::size_t j = 0; j < lanes; ++j)
            if (j < n) out[j] = few[j];
        return;
    }
    const Lanes last = load(x + n - lanes); // out may be x
    for (std::size_t i = 0; i + lanes <= n; i += lanes) store(out + i, f(load(x + i)));
    if (n % lanes != 0) store(out + n - lanes, f(last));
}

void normal(const double* x, double* out, std::size_t n) noexcept {
    overArray(x, out, n, [](Lanes v) METRISK_LOCAL { return normalOf(v); });
}
void normalDensity(const double* x, double* out, std::size_t n) noexcept {
    overArray(x, out, n, [](Lanes v) METRISK_LOCAL { return densityOf(v); });
}
void exponential(double factor, const double* x, double* out, std::size_t n) noexcept {
    overArray(x, out, n, [&](Lanes v) METRISK_LOCAL { return exponentialAt(factor * v); });
}
void exponentialLessOne(double factor, const double* x, double* out, std::size_t n) noexcept {
    overArray(x, out, n, [&](Lanes v) METRISK_LOCAL { return exponentialLessOneAt(factor * v); });
}
void normalWindow(const double* x, const NormalWindow& window, double* out, std::size_t n) noexcept {
    overArray(x, out, n, [&](Lanes v) METRISK_LOCAL {
        return windowOf((window.upper - v) / window.sigma, (window.lower - v) / window.sigma);
    });
}

/// A sum in four parts, those of i mod 4: f gives the terms from an index on, a register full of them.
template <class F>
METRISK_INLINE double inParts(std::size_t n, F f) {
    constexpr std::size_t some = lanes < parts ? lanes : parts, step = lanes < parts ? parts : lanes;
    using Parts [[gnu::vector_size(some * 8)]] = double;
    Parts sums[parts / some] = {};
    for (std::size_t i = 0; i < n; i += step)
        for (std::size_t j = 0; j < step; j += lanes) {
            const Lanes terms = f(i + j);
            Parts pieces[lanes / some];
            std::memcpy(pieces, &terms, sizeof terms);
            for (std::size_t k = 0; k < lanes; k += some)
                if (i + j + k < n) sums[(j + k) % parts / some] += pieces[k / some];
        }
    double part[parts];
    std::memcpy(part, sums, sizeof part);
    return (part[0] + part[1]) + (part[2] + part[3]);
}

/// From an index on; where the array ends within the register, zeros.
METRISK_INLINE Lanes loadFrom(const double* from, std::size_t i, std::size_t n) {
    if (lanes <= parts || i + lanes <= n) return load(from + i);
    Lanes some = {};
    std::memcpy(&some, from + i, parts * 8);
    return some;
}

double sumOfProducts(const double* a, const double* b, std::size_t n) noexcept {
    return inParts(n, [&](std::size_t i) METRISK_LOCAL { return loadFrom(a, i, n) * loadFrom(b, i, n); });
}
double normalWindowSum(const double* x, const double* w, std::size_t n, double middle, double half,
                       const NormalWindow& window) noexcept {
    return inParts(n, [&](std::size_t i) METRISK_LOCAL {
        const Lanes u = middle + half * loadFrom(x, i, n);
        const Lanes share = windowOf((window.upper - u) / window.sigma, (window.lower - u) / window.sigma);
        return loadFrom(w, i, n) * densityOf(u) * share;
    });
}

constexpr ArrayKernels kernels{normal,       normalDensity, exponential,    exponentialLessOne,
                               normalWindow, sumOfProducts, normalWindowSum};

} // namespace
} // namespace metrisk
