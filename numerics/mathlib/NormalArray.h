// The standard normal distribution and density of a whole array.
#pragma once

#include <cstddef>

namespace metrisk {

/// out[i] = P(Z <= x[i]), fractions; x and out may be the same array. Saturates at 0 and 1 and never
/// fails; nan gives nan. Relative error below 2e-15 down to the smallest normal double, so that the last
/// digits may differ from those of Normal(double). Several elements are worked on at once.
void Normal(const double* x, double* out, std::size_t n) noexcept;

/// out[i] = exp(-x[i]^2/2)/sqrt(2 pi); the same contract, relative error below 1e-15. Beyond 38.8 it is 0.
void NormalDensity(const double* x, double* out, std::size_t n) noexcept;

} // namespace metrisk
