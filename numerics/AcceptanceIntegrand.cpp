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

/// One block: the arguments of Phi for all points, Phi of all of them at once, then the densities.
void AcceptanceIntegrand::evaluateBlock(const double* u, double* value, std::size_t n) const {
    const double lo = lo_;
    const double hi = hi_;
    const double sm = sm_;
    if (n == 0) return;
    double phi[2 * blockSize]; // the first argument of every point, then the second
    double* const second = phi + n;
    const double rate = subject_.expExponent;
    switch (form_) {
    case Form::None:
    case Form::NoScale: return;
    case Form::NormalTwoSided:
        for (std::size_t i = 0; i < n; ++i) phi[i] = (hi - u[i]) / sm;
        for (std::size_t i = 0; i < n; ++i) second[i] = (lo - u[i]) / sm;
        Normal(phi, phi, 2 * n);
        for (std::size_t i = 0; i < n; ++i) value[i] = phi[i] - second[i];
        return timesDensity(u, value, n);
    case Form::NormalUpper:
        for (std::size_t i = 0; i < n; ++i) phi[i] = (hi - u[i]) / sm;
        Normal(phi, phi, n);
        for (std::size_t i = 0; i < n; ++i) value[i] = phi[i];
        return timesDensity(u, value, n);
    case Form::NormalLower:
        for (std::size_t i = 0; i < n; ++i) phi[i] = (u[i] - lo) / sm;
        Normal(phi, phi, n);
        for (std::size_t i = 0; i < n; ++i) value[i] = phi[i];
        return timesDensity(u, value, n);
    case Form::LogNormalFarSide:
        for (std::size_t i = 0; i < n; ++i) phi[i] = (lo - logNormalRatio(u[i])) / sm;
        Normal(phi, phi, n);
        for (std::size_t i = 0; i < n; ++i) value[i] = 1 - phi[i];
        return timesDensity(u, value, n);
    case Form::LogNormalBounded:
        for (std::size_t i = 0; i < n; ++i) {
            const double t = logNormalRatio(u[i]);
            phi[i] = (hi - t) / sm;
            second[i] = (lo - t) / sm;
        }
        Normal(phi, phi, 2 * n);
        for (std::size_t i = 0; i < n; ++i) value[i] = phi[i] - second[i];
        return timesDensity(u, value, n);
    case Form::ExponentialNear:
        for (std::size_t i = 0; i < n; ++i) phi[i] = (hi - u[i]) / sm;
        for (std::size_t i = 0; i < n; ++i) second[i] = u[i] / sm;
        Normal(phi, phi, 2 * n);
        for (std::size_t i = 0; i < n; ++i)
            value[i] = rate * std::exp(-rate * u[i]) * (phi[i] + second[i] - 1);
        return;
    case Form::ExponentialFar:
        // hi, not lo: the acceptance bound of these cases is the large bound, by design.
        for (std::size_t i = 0; i < n; ++i) phi[i] = (hi - u[i]) / sm;
        Normal(phi, phi, n);
        for (std::size_t i = 0; i < n; ++i) value[i] = rate * std::exp(-rate * u[i]) * (1 - phi[i]);
        return;
    case Form::Uniform: {
        const double density = 1 / (2 * subject_.upperOffset);
        for (std::size_t i = 0; i < n; ++i) phi[i] = (hi - u[i]) / sm;
        for (std::size_t i = 0; i < n; ++i) second[i] = (lo - u[i]) / sm;
        Normal(phi, phi, 2 * n);
        for (std::size_t i = 0; i < n; ++i) {
            const bool inside = u[i] >= -subject_.lowerOffset && u[i] <= subject_.upperOffset;
            value[i] = inside ? density * (phi[i] - second[i]) : 0;
        }
        return;
    }
    }
}

double AcceptanceIntegrand::logNormalRatio(double u) const {
    return subject_.logOmega * std::exp(subject_.logSigma * u);
}

} // namespace metrisk
