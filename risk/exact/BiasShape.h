// A subject parameter on the scale that exact integration walks on.
#pragma once

#include "numerics/Distribution.h"
#include "numerics/mathlib/Normal.h"
#include "risk/RiskModel.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace metrisk {

/// A subject parameter in its standard variable u, measured on a scale x that grows with u.
struct BiasShape {
    static constexpr double infinity = std::numeric_limits<double>::infinity();

    Distribution kind;
    double rate = 0;                              // Exponential
    double width = 0;                             // Uniform: its half width
    double logSigma = 0, omega = 0;               // LogNormal: x = omega exp(logSigma u)
    double sm = 0;                                // measuring sigma on the scale of x
    double lowerU = -infinity, upperU = infinity; // in tolerance
    double lowerX = -infinity, upperX = infinity; // accepted when measured there

    bool normalDensity() const { return kind == Distribution::Normal || kind == Distribution::LogNormal; }
    double supportLow() const {
        return kind == Distribution::Exponential ? 0 : kind == Distribution::Uniform ? -width : -infinity;
    }
    double supportHigh() const { return kind == Distribution::Uniform ? width : infinity; }
    double x(double u) const { return kind == Distribution::LogNormal ? omega * std::exp(logSigma * u) : u; }

    /// Content above and below u.
    double above(double u) const {
        if (normalDensity()) return Normal(-u);
        if (kind == Distribution::Exponential) return std::exp(-rate * std::max(u, 0.0));
        return std::clamp((width - u) / (2 * width), 0.0, 1.0);
    }
    double below(double u) const {
        if (normalDensity()) return Normal(u);
        if (kind == Distribution::Exponential) return -std::expm1(-rate * std::max(u, 0.0));
        return std::clamp((u + width) / (2 * width), 0.0, 1.0);
    }
};

/// The parameter on its own scale; limits that are not there are infinite. None without a scale, and where
/// limits have crossed.
std::optional<BiasShape> biasShape(const SubjectBias& subject, double mteSigma, AcceptanceRange range);

/// A normal one with symmetric limits, accepted within its tolerance; `sm` is its measuring sigma.
std::optional<BiasShape> symmetricShape(double limit, double sm);

} // namespace metrisk
