#include "numerics/AcceptanceIntegrand.h"

#include "base/Real.h"
#include "numerics/mathlib/NormalArray.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr std::size_t blockSize = 128;

/// value[i] *= the standard normal density at u[i].
void timesDensity(const double* u, double* value, std::size_t n) {
    double density[blockSize];
    NormalDensity(u, density, n);
    for (std::size_t i = 0; i < n; ++i) value[i] *= density[i];
}

/// value[i] *= the density of an exponential parameter of that rate at u[i].
void timesExponentialDensity(double rate, const double* u, double* value, std::size_t n) {
    double density[blockSize];
    Exponential(-rate, u, density, n);
    for (std::size_t i = 0; i < n; ++i) value[i] *= rate * density[i];
}

} // namespace

AcceptanceIntegrand::AcceptanceIntegrand(const SubjectBias& subject, double lo, double hi, double mteSigma)
    : subject_(subject), lo_(lo), hi_(hi) {
    const auto divisor = [](double value) {
        if (value == 0) throw RuntimeFault(FaultKind::Argument, "IntegrateAcceptance");
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
    if (form_ == Form::None || form_ == Form::NoScale) return;
    for (std::size_t done = 0; done < n; done += blockSize)
        evaluateBlock(u + done, value + done, std::min(blockSize, n - done));
}

/// One block: the probabilities of acceptance at all points at once, then the densities.
void AcceptanceIntegrand::evaluateBlock(const double* u, double* value, std::size_t n) const {
    const double sm = sm_;
    const double rate = subject_.expExponent;
    double awayFromLimit[blockSize];
    switch (form_) {
    case Form::None:
    case Form::NoScale: return;
    case Form::NormalTwoSided:
        NormalWindowShare(u, {hi_, lo_, sm}, value, n);
        return timesDensity(u, value, n);
    case Form::NormalUpper:
        for (std::size_t i = 0; i < n; ++i) value[i] = (hi_ - u[i]) / sm;
        Normal(value, value, n);
        return timesDensity(u, value, n);
    case Form::NormalLower:
        for (std::size_t i = 0; i < n; ++i) value[i] = (u[i] - lo_) / sm;
        Normal(value, value, n);
        return timesDensity(u, value, n);
    case Form::LogNormalFarSide:
        logNormalRatios(u, value, n);
        for (std::size_t i = 0; i < n; ++i) value[i] = (lo_ - value[i]) / sm;
        Normal(value, value, n);
        for (std::size_t i = 0; i < n; ++i) value[i] = 1 - value[i];
        return timesDensity(u, value, n);
    case Form::LogNormalBounded:
        logNormalRatios(u, value, n);
        NormalWindowShare(value, {hi_, lo_, sm}, value, n);
        return timesDensity(u, value, n);
    case Form::ExponentialNear:
        for (std::size_t i = 0; i < n; ++i) value[i] = (hi_ - u[i]) / sm;
        for (std::size_t i = 0; i < n; ++i) awayFromLimit[i] = u[i] / sm;
        Normal(value, value, n);
        Normal(awayFromLimit, awayFromLimit, n);
        // Of a sum with 1, which ends the walk to the open end where hardly anything is accepted any more.
        for (std::size_t i = 0; i < n; ++i) value[i] = value[i] + awayFromLimit[i] - 1;
        return timesExponentialDensity(rate, u, value, n);
    case Form::ExponentialFar:
        // hi, not lo: the acceptance bound of these cases is the large bound, by design.
        for (std::size_t i = 0; i < n; ++i) value[i] = (hi_ - u[i]) / sm;
        Normal(value, value, n);
        for (std::size_t i = 0; i < n; ++i) value[i] = 1 - value[i];
        return timesExponentialDensity(rate, u, value, n);
    case Form::Uniform: {
        const double density = 1 / (2 * subject_.upperOffset);
        NormalWindowShare(u, {hi_, lo_, sm}, value, n);
        for (std::size_t i = 0; i < n; ++i) {
            const bool inside = u[i] >= -subject_.lowerOffset && u[i] <= subject_.upperOffset;
            value[i] = inside ? density * value[i] : 0;
        }
        return;
    }
    }
}

double AcceptanceIntegrand::sumOver(const double* x, const double* w, std::size_t n, double middle,
                                    double half) const {
    if (form_ == Form::NormalTwoSided) return NormalWindowSum(x, w, n, middle, half, {hi_, lo_, sm_});
    double sum = 0;
    for (std::size_t done = 0; done < n; done += blockSize) {
        const std::size_t some = std::min(blockSize, n - done);
        double u[blockSize], value[blockSize] = {};
        for (std::size_t i = 0; i < some; ++i) u[i] = middle + half * x[done + i];
        evaluate(u, value, some);
        sum += SumOfProducts(w + done, value, some);
    }
    return sum;
}

bool AcceptanceIntegrand::isEven() const {
    return (form_ == Form::NormalTwoSided || form_ == Form::Uniform) && lo_ == -hi_;
}

void AcceptanceIntegrand::logNormalRatios(const double* u, double* ratio, std::size_t n) const {
    Exponential(subject_.logSigma, u, ratio, n);
    for (std::size_t i = 0; i < n; ++i) ratio[i] *= subject_.logOmega;
}

} // namespace metrisk
