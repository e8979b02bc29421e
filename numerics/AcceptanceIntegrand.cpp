#include "numerics/AcceptanceIntegrand.h"

#include "numerics/Real.h"
#include "numerics/mathlib/Normal.h"

#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr double inverseRootTwoPi = std::numbers::inv_sqrtpi / std::numbers::sqrt2;

double standardDensity(double u) { return std::exp(-0.5 * u * u) * inverseRootTwoPi; }

} // namespace

AcceptanceIntegrand::AcceptanceIntegrand(const SubjectBias& subject, double lo, double hi, double mteSigma)
    : subject_(subject), lo_(lo), hi_(hi) {
    const auto divisor = [](double value) {
        if (value == 0) throw RuntimeFault{};
        return value;
    };
    switch (subject.distribution) {
    case Distribution::Normal:
        if (subject.sigma == 0 || mteSigma == 0) {
            form_ = Form::NoScale;
            return;
        }
        sm_ = mteSigma / subject.sigma;
        form_ = subject.twoSided      ? Form::NormalTwoSided
                : subject.singleUpper ? Form::NormalUpper
                                      : Form::NormalLower;
        break;
    case Distribution::LogNormal:
        if (subject.logSigma == 0) {
            form_ = Form::NoScale;
            return;
        }
        sm_ = mteSigma / divisor(std::fabs(subject.mode - subject.physicalLimit));
        form_ = subject.caseCode == 1 ? Form::LogNormalFarSide : Form::LogNormalBounded;
        break;
    case Distribution::Exponential:
        sm_ = mteSigma / divisor(subject.sideOffset());
        form_ = subject.caseCode == 8 ? Form::ExponentialNear : Form::ExponentialFar;
        break;
    case Distribution::Uniform:
        divisor(subject.upperOffset);
        sm_ = mteSigma;
        form_ = Form::Uniform;
        break;
    case Distribution::None: return;
    }
    divisor(checked(sm_));
}

void AcceptanceIntegrand::evaluate(const double* u, double* value, std::size_t n) const {
    const double lo = lo_;
    const double hi = hi_;
    const double sm = sm_;
    switch (form_) {
    case Form::None:
    case Form::NoScale: return;
    case Form::NormalTwoSided:
        for (std::size_t i = 0; i < n; ++i)
            value[i] = standardDensity(u[i]) * (Normal((hi - u[i]) / sm) - Normal((lo - u[i]) / sm));
        return;
    case Form::NormalUpper:
        for (std::size_t i = 0; i < n; ++i) value[i] = standardDensity(u[i]) * Normal((hi - u[i]) / sm);
        return;
    case Form::NormalLower:
        for (std::size_t i = 0; i < n; ++i) value[i] = standardDensity(u[i]) * Normal((u[i] - lo) / sm);
        return;
    case Form::LogNormalFarSide:
        for (std::size_t i = 0; i < n; ++i) {
            const double t = subject_.logOmega * std::exp(subject_.logSigma * u[i]);
            value[i] = standardDensity(u[i]) * (1 - Normal((lo - t) / sm));
        }
        return;
    case Form::LogNormalBounded:
        for (std::size_t i = 0; i < n; ++i) {
            const double t = subject_.logOmega * std::exp(subject_.logSigma * u[i]);
            value[i] = standardDensity(u[i]) * (Normal((hi - t) / sm) - Normal((lo - t) / sm));
        }
        return;
    case Form::ExponentialNear:
        for (std::size_t i = 0; i < n; ++i)
            value[i] = subject_.expExponent * std::exp(-subject_.expExponent * u[i]) *
                       (Normal((hi - u[i]) / sm) + Normal(u[i] / sm) - 1);
        return;
    case Form::ExponentialFar:
        // hi, not lo: the acceptance bound of these cases is the large bound, by design.
        for (std::size_t i = 0; i < n; ++i)
            value[i] = subject_.expExponent * std::exp(-subject_.expExponent * u[i]) *
                       (1 - Normal((hi - u[i]) / sm));
        return;
    case Form::Uniform: {
        const double density = 1 / (2 * subject_.upperOffset);
        for (std::size_t i = 0; i < n; ++i) {
            const bool inside = u[i] >= -subject_.lowerOffset && u[i] <= subject_.upperOffset;
            value[i] = inside ? density * (Normal((hi - u[i]) / sm) - Normal((lo - u[i]) / sm)) : 0;
        }
        return;
    }
    }
}

} // namespace metrisk
