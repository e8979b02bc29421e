// The standard normal distribution and density of a whole array, and sums over it. Several elements are
// worked on at once; every processor gives the same bits.
#pragma once

#include <cstddef>

namespace metrisk {

/// out[i] = P(Z <= x[i]), fractions; x and out may be the same array. Saturates at 0 and 1 and never
/// fails; nan gives nan. Relative error below 2e-15 down to the smallest normal double, so that the last
/// digits may differ from those of Normal(double).
void Normal(const double* x, double* out, std::size_t n) noexcept;

/// out[i] = exp(-x[i]^2/2)/sqrt(2 pi); the same contract, relative error below 1e-15. Beyond 38.8 it is 0.
void NormalDensity(const double* x, double* out, std::size_t n) noexcept;

/// out[i] = exp(factor x[i]), the product being rounded; the same contract, relative error below 5e-16 but
/// where the result is subnormal. Beyond the largest double it is infinite.
void Exponential(double factor, const double* x, double* out, std::size_t n) noexcept;

/// out[i] = exp(factor x[i]) - 1, near 0 as well; the same contract, relative error below 1e-15. Infinite
/// from 709 on.
void ExponentialLessOne(double factor, const double* x, double* out, std::size_t n) noexcept;

/// A normal error of that sigma is within (lower, upper); in one unit.
struct NormalWindow {
    double upper;
    double lower;
    double sigma;
};

/// out[i] = P(lower < x[i] + sigma Z <= upper) = Phi((upper - x[i])/sigma) - Phi((lower - x[i])/sigma), each
/// of them as by Normal; x and out may be the same array.
void NormalWindowShare(const double* x, const NormalWindow& window, double* out, std::size_t n) noexcept;

/// The sum of a[i] b[i] in four parts, those of i mod 4; n is a multiple of 4.
double SumOfProducts(const double* a, const double* b, std::size_t n) noexcept;

/// The sum of w[i] phi(u) P(lower < u + sigma Z <= upper), u = middle + half x[i] and phi the standard normal
/// density, in four parts; n is a multiple of 4.
double NormalWindowSum(const double* x, const double* w, std::size_t n, double middle, double half,
                       const NormalWindow& window) noexcept;

} // namespace metrisk
