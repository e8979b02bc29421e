#include "risk/decision/OffCentre.h"

#include "numerics/BracketedRoot.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/Normal.h"
#include "risk/decision/Refused.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr const char* processTitle = "Off-centre Process";

/// The sigma at which the distances to both limits hold that percentage.
double sigmaHolding(double below, double above, double pct) {
    const double inside = pct / 100, outside = (100 - pct) / 100;
    // In logarithms, of the smaller of both contents.
    const auto excess = [&](double logSigma) {
        const double low = below * std::exp(-logSigma), high = above * std::exp(-logSigma);
        if (inside > 0.5) return std::log(outside / (Normal(-low) + Normal(-high)));
        return std::log((std::erf(low / std::numbers::sqrt2) + std::erf(high / std::numbers::sqrt2)) /
                        (2 * inside));
    };
    CurvePoint low{std::log(std::min(below, above)), 0};
    low.y = excess(low.x);
    CurvePoint high = low;
    for (double step = 1; low.y < 0; step *= 2) low = {low.x - step, excess(low.x - step)};
    for (double step = 1; high.y > 0; step *= 2) high = {high.x + step, excess(high.x + step)};
    if (low.y == 0) return std::exp(low.x);
    return std::exp(bracketedRoot(excess, low, high, 1e-15));
}

} // namespace

Result<SubjectBias> offCentreProcess(const DecisionBasis& basis, const OffCentre& process) {
    const auto refuse = [](const char* text) { return refusedFigure(processTitle, text); };
    const double shift = process.mean - basis.subject.mode;
    const double above = basis.subject.upperOffset - shift, below = basis.subject.lowerOffset + shift;
    if (!std::isfinite(process.mean) || !std::isfinite(process.bias)) return refuse("Must be a number.");
    if ((basis.hasUpper() && !(above > 0)) || (basis.hasLower() && !(below > 0)))
        return refuse("The mean must lie within the limits.");
    if (!basis.twoSided() && basis.subject.physicalLimitRequired)
        return refuse("A process that is off centre has no physical limit.");
    const double pct = basis.subject.pctInTol;
    double sigma = process.sigma.value_or(0);
    if (process.sigma) {
        if (!(sigma > 0) || !std::isfinite(sigma))
            return refuse("The process sigma must be greater than zero.");
    } else {
        if (!(pct > 0 && pct < 100)) return refuse("The % in-tolerance must be above 0 % and below 100 %.");
        if (!basis.twoSided() && !(pct > 50)) return refuse("The % in-tolerance must be greater than 50 %.");
        sigma = basis.twoSided() ? sigmaHolding(below, above, pct)
                                 : (basis.hasUpper() ? above : below) / -InvNorm((100 - pct) / 100);
    }
    SubjectBias subject;
    subject.distribution = Distribution::Normal;
    subject.twoSided = basis.twoSided();
    subject.singleUpper = !basis.twoSided() && basis.hasUpper();
    subject.caseCode = basis.twoSided() ? 6 : basis.hasUpper() ? 5 : 4;
    subject.mode = process.mean;
    subject.upperOffset = above;
    subject.lowerOffset = below;
    subject.upperLimit = process.mean + above;
    subject.lowerLimit = process.mean - below;
    subject.sigma = sigma;
    return subject;
}

Result<OffCentreRisks> offCentreRisks(const DecisionBasis& basis, const OffCentre& process) {
    const auto subject = offCentreProcess(basis, process);
    if (!subject) return subject.refusal();
    // A bias of the measurement moves the test limits the other way.
    const double shift = process.mean - basis.subject.mode + process.bias;
    const Interval limits = basis.testLimits();
    const auto risks = guardedRisks(*subject, basis.sigma, {limits.lower - shift, limits.upper - shift});
    if (!risks) return noFigureOf(processTitle, nothingAcceptedText);
    return OffCentreRisks{subject->sigma, *risks};
}

} // namespace metrisk
