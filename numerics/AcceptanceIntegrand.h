// Density of the subject parameter times the probability that the measurement accepts it.
#pragma once

#include "numerics/Distribution.h"

#include <cstddef>

namespace metrisk {

/// With phi and Phi the standard normal density and distribution, sm the measuring sigma in the
/// bounds' unit, and u the standard variable of SubjectBias:
///   Normal       phi(u) [Phi((hi - u)/sm) - Phi((lo - u)/sm)], one term only when single-sided
///   LogNormal    with t = logOmega exp(logSigma u): phi(u) [Phi((hi - t)/sm) - Phi((lo - t)/sm)],
///                case code 1: phi(u) [1 - Phi((lo - t)/sm)]
///   Exponential  e exp(-e u) [Phi((hi - u)/sm) + Phi(u/sm) - 1], other codes than 8:
///                e exp(-e u) [1 - Phi((hi - u)/sm)]
///   Uniform      1/(2 upper offset) [Phi((hi - u)/sm) - Phi((lo - u)/sm)] inside the offsets, else 0
class AcceptanceIntegrand {
  public:
    /// `lo` and `hi` are the acceptance bounds in the distribution's unit, `mteSigma` the measuring
    /// sigma in nominal units. Raises RuntimeFault when a divisor is 0 that is not a scale parameter.
    AcceptanceIntegrand(const SubjectBias& subject, double lo, double hi, double mteSigma);

    /// False when a scale parameter is exactly 0: there is no density to evaluate then.
    bool hasScale() const { return form_ != Form::NoScale; }

    /// Values at n points, without allocation. Without a scale, or for no distribution, the values
    /// are left as they were.
    void evaluate(const double* u, double* value, std::size_t n) const;

    double at(double u) const {
        double value = 0;
        evaluate(&u, &value, 1);
        return value;
    }

    /// The sum of w[i] times the value at middle + half x[i], n being a multiple of four; no sum without a
    /// scale.
    double sumOver(const double* x, const double* w, std::size_t n, double middle, double half) const;

    /// The values at u and -u are the same.
    bool isEven() const;

    const SubjectBias& subject() const { return subject_; }

  private:
    enum class Form {
        None,
        NoScale,
        NormalTwoSided,
        NormalUpper,
        NormalLower,
        LogNormalFarSide,
        LogNormalBounded,
        ExponentialNear,
        ExponentialFar,
        Uniform
    };

    void evaluateBlock(const double* u, double* value, std::size_t n) const;
    /// (x - physicalLimit)/(mode - physicalLimit) at standard variables.
    void logNormalRatios(const double* u, double* ratio, std::size_t n) const;

    SubjectBias subject_;
    Form form_ = Form::None;
    double lo_;
    double hi_;
    double sm_ = 0;
};

} // namespace metrisk
