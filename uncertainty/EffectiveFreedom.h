// Effective degrees of freedom of several errors together.
#pragma once

namespace metrisk {

/// Beyond this a t distribution counts as normal.
inline constexpr double largestDegFreedom = 4999;

/// Sums of the formula of Welch and Satterthwaite: effective degrees of freedom = A^2 / B.
struct EffectiveFreedom {
    double squares = 0;            // A = sum of u^2
    double quarticsPerFreedom = 0; // B = sum of u^4 / v, rows with infinite v left out

    /// Raises RuntimeFault on overflow.
    void add(double uncertainty, double degFreedom);
    /// 0 means infinite.
    double value() const;
};

} // namespace metrisk
