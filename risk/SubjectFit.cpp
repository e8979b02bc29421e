#include "risk/SubjectFit.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "numerics/Distribution.h"
#include "numerics/mathlib/InvNorm.h"
#include "record/EntryRules.h"
#include "record/SubjectSide.h"
#include "record/Symmetry.h"
#include "risk/LogNormalSearch.h"
#include "risk/RiskMessages.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace metrisk {

namespace {

constexpr double sameLimit = 1e-12; // relative
constexpr const char* lowerText = "Must be less than the\nMode for the case in question.";
constexpr const char* pctText = "Must be greater than 50% for \nthe case in question.";
constexpr const char* upperText = "Must be greater than the Mode\nfor the case in question.";
constexpr const char* physicalText = "The Physical Limit must lie outside the range\n";

/// Significant digits that tell two ends of a range apart, and four of what is between them.
int digitsApart(double one, double other) {
    const double largest = std::fmax(std::fabs(one), std::fabs(other));
    const double digits = std::ceil(std::log10(largest / std::fabs(one - other))) + 4;
    return static_cast<int>(std::fmin(digits, 15));
}

class SubjectFit {
  public:
    SubjectFit(SubjectParameter& subject, const Regional& regional)
        : r_(subject), regional_(regional), p_(checked(r_.SU_PctInTol / 100)) {}

    void run() {
        if (!(p_ > 0)) throw RuntimeFault(FaultKind::Argument, "FitSubjectParameter", r_.SU_PctInTol);
        if (p_ != 1) computeTails();
        chooseDistribution();
        Real sigma;
        switch (distributionNamed(r_.SU_Distribution)) {
        case Distribution::Normal: sigma = fitNormal(); break;
        case Distribution::Exponential: sigma = fitExponential(); break;
        case Distribution::Uniform: sigma = fitUniform(); break;
        case Distribution::LogNormal:
        case Distribution::None: sigma = fitLogNormal(); break;
        }
        if (!(sigma > 0)) refuseWithoutSpread();
        r_.SU_Sigma = sigma.value();
        r_.SubjectFitValid = true;
    }

  private:
    void computeTails() {
        r_.ZTailLow = checked(InvNorm((1 - p_) / 2));
        r_.ZTailHigh = checked(InvNorm(1 - (1 - p_) / 2));
        r_.ZTwoSided = checked(InvNorm((p_ + 1) / 2));
    }

    double sideLimit() const { return r_.OptSingleLower ? r_.SU_LowerLimit : r_.SU_UpperLimit; }

    void chooseDistribution() {
        if (r_.OptTwoSided) {
            if (isSymmetric(r_)) {
                r_.SU_Distribution = r_.SU_PctInTol == 100 ? uniformName : normalName;
            } else {
                r_.SU_Distribution = logNormalName;
                r_.PhysLimitBelow = r_.SU_UpperOffset > r_.SU_LowerOffset;
                r_.PhysLimitAbove = !r_.PhysLimitBelow;
            }
        } else if (!r_.PhysLimitRequired) {
            r_.SU_Distribution = normalName;
        } else {
            r_.SU_Distribution = r_.PhysicalLimit == r_.SU_Mode ? exponentialName : logNormalName;
            r_.PhysLimitBelow = sideLimit() > r_.PhysicalLimit;
            r_.PhysLimitAbove = !r_.PhysLimitBelow;
        }
    }

    /// By the offset, which a large mode does not round.
    Real fitNormal() {
        if (r_.OptTwoSided) {
            r_.SU_CaseCode = 6;
            return Real(r_.SU_UpperOffset) / r_.ZTwoSided;
        }
        if (r_.OptSingleLower) {
            r_.SU_CaseCode = 4;
            if (r_.SU_LowerLimit >= r_.SU_Mode) refuse(lowerSide.limitTitle, lowerText, lowerSide.limitBox);
            requireAboveHalf();
            return Real(r_.SU_LowerOffset) / InvNorm(p_);
        }
        r_.SU_CaseCode = 5;
        if (r_.SU_UpperLimit <= r_.SU_Mode) refuse(upperSide.limitTitle, upperText, upperSide.limitBox);
        requireAboveHalf();
        return Real(r_.SU_UpperOffset) / InvNorm(p_);
    }

    Real fitExponential() {
        const bool towardsLimit = r_.OptSingleUpper == r_.PhysLimitBelow;
        r_.SU_CaseCode = towardsLimit ? 8 : 7;
        const Real exponent = towardsLimit ? -log(1 - Real(p_)) : -log(Real(p_));
        const Real distance = Real(sideLimit()) - r_.SU_Mode;
        const Real rate = exponent / distance;
        // The root of the distance, not the distance: the spread of this case has always been so.
        const Real sigma = sqrt(r_.OptSingleUpper ? distance : -distance) / abs(exponent);
        r_.SU_ExpExponent = exponent.value();
        r_.SU_ExpRate = rate.value();
        return sigma;
    }

    Real fitUniform() {
        r_.SU_CaseCode = 9;
        return (Real(r_.SU_UpperOffset) + r_.SU_LowerOffset) / (2 * std::numbers::sqrt3);
    }

    Real fitLogNormal() {
        if (r_.OptTwoSided) {
            fitLogNormalTwoSided();
        } else {
            const bool beyondMode = r_.OptSingleUpper == r_.PhysLimitBelow;
            r_.SU_CaseCode = beyondMode ? 2 : 1;
            const Real ratio = (Real(sideLimit()) - r_.PhysicalLimit) / (Real(r_.SU_Mode) - r_.PhysicalLimit);
            r_.LimitRatioNear = ratio.value();
            r_.SU_LogSigma = (beyondMode ? shapeBeyondMode(ratio) : shapeBetween(ratio)).value();
        }
        const Real square = Real(r_.SU_LogSigma) * r_.SU_LogSigma;
        const Real omega = exp(square);
        r_.SU_LogOmega = omega.value();
        return abs(Real(r_.SU_Mode) - r_.PhysicalLimit) * sqrt(omega * omega * omega * expm1(square));
    }

    Real shapeBeyondMode(Real ratio) const {
        const Real h = checked(InvNorm(p_)) / 2;
        return sqrt(h * h + log(ratio)) - h;
    }

    /// The limit lies between the physical limit and the mode; the smaller of two shapes is taken.
    Real shapeBetween(Real ratio) {
        const Real z = checked(InvNorm(1 - p_));
        if (z >= 0) refuse(subjectPctTitle, pctText, "PctInTolBox");
        const Real h = z / 2;
        const Real discriminant = h * h + log(ratio);
        if (discriminant < 0) {
            CheckPhysicalLimit(z, sideLimit());
            return -h; // the physical limit is on the bound itself: both shapes are one
        }
        const Real smaller = -sqrt(discriminant) - h;
        return smaller < 0 ? sqrt(discriminant) - h : smaller;
    }

    void fitLogNormalTwoSided() {
        r_.SU_CaseCode = 3;
        const bool below = r_.PhysLimitBelow;
        const LogNormalFit fit = searchLogNormal({.mode = r_.SU_Mode,
                                                  .near = below ? r_.SU_LowerLimit : r_.SU_UpperLimit,
                                                  .far = below ? r_.SU_UpperLimit : r_.SU_LowerLimit,
                                                  .pctInTol = r_.SU_PctInTol,
                                                  .zTailLow = r_.ZTailLow,
                                                  .zTailHigh = r_.ZTailHigh,
                                                  .physLimitBelow = below});
        r_.PhysicalLimit = fit.physicalLimit;
        r_.LimitRatioNear = fit.limitRatioNear;
        r_.LimitRatioFar = fit.limitRatioFar;
        r_.SU_LogSigma = fit.logSigma;
    }

    /// Refuses a physical limit so near the tolerance limit that no shape gives the % in-tolerance;
    /// one on the bound itself passes.
    void CheckPhysicalLimit(Real z, double limit) {
        const Real q = exp(-(z / 2) * (z / 2));
        const double bound = ((r_.SU_Mode * q - limit) / (q - 1)).value();
        if (std::fabs(bound - r_.PhysicalLimit) <= sameLimit * std::fabs(bound)) return;
        const auto text = [&](double end) {
            return r_.SU_Mode_fmt.empty() ? GeneralText(end, regional_, digitsApart(r_.SU_Mode, bound))
                                          : FormatNumber(end, r_.SU_Mode_fmt, regional_);
        };
        const std::string mode = text(r_.SU_Mode), edge = text(bound);
        const std::string range = bound > r_.PhysicalLimit ? mode + " to " + edge : edge + " to " + mode;
        refuse(physicalLimitTitle, physicalText + range + ".", otherSide(presentSide(r_)).limitBox);
    }

    void requireAboveHalf() {
        if (!(p_ > 0.5)) refuse(subjectPctTitle, pctText, "PctInTolBox");
    }

    /// Limits may lie too close for the arithmetic. No tolerance at all is an analysis still being entered.
    [[noreturn]] void refuseWithoutSpread() {
        if (r_.SU_UpperOffset == 0 && r_.SU_LowerOffset == 0)
            throw RuntimeFault(FaultKind::Argument, "FitSubjectParameter");
        refuse(limitsUnrealistic.title, std::string(limitsUnrealistic.text), nullptr);
    }

    [[noreturn]] static void refuse(std::string_view title, std::string text, const char* box) {
        throw FitRefusal{title, std::move(text), box};
    }

    SubjectParameter& r_;
    const Regional& regional_;
    double p_;
};

} // namespace

SubjectParameter fitSubject(const SubjectParameter& entered, const Regional& regional) {
    SubjectParameter subject = entered;
    SubjectFit(subject, regional).run();
    return subject;
}

} // namespace metrisk
