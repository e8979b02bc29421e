#include "risk/Risks.h"

#include "model/Session.h"
#include "numerics/AcceptanceIntegral.h"
#include "numerics/Real.h"
#include "numerics/mathlib/Normal.h"
#include "risk/RiskMessages.h"

#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr const char* computingText = "Computing risks...";

/// The integrand's cut-off, and the standard value at which the normal density has that height.
constexpr double eps = 1e-14;
const double farBound = std::sqrt(-2 * std::log(eps * std::sqrt(2 * std::numbers::pi)));

struct AcceptanceBounds {
    double lo = 0;
    double hi = 0;
    bool usable = true; // false: there is no scale to express them in
};

/// Acceptance limits in the unit of the subject's standard variable.
AcceptanceBounds acceptanceBounds(const SubjectBias& su, double lower, double upper) {
    switch (su.distribution) {
    case Distribution::LogNormal: {
        if (su.twoSided) {
            const double atLower = su.limitRatio(lower);
            const double atUpper = su.limitRatio(upper);
            return su.physLimitBelow ? AcceptanceBounds{atLower, atUpper}
                                     : AcceptanceBounds{atUpper, atLower};
        }
        const double limit = su.limitRatio(su.singleUpper ? upper : lower);
        return su.singleUpper == su.physLimitBelow ? AcceptanceBounds{0, limit}
                                                   : AcceptanceBounds{limit, farBound};
    }
    case Distribution::Normal: {
        if (!(su.sigma > 0)) return {.usable = false};
        const auto standard = [&su](double x) { return ((Real(x) - su.mode) / su.sigma).value(); };
        if (su.twoSided) return {standard(lower), standard(upper)};
        if (su.singleUpper) return {-farBound, standard(upper)};
        return {standard(lower), farBound};
    }
    case Distribution::Exponential: {
        const double offset = su.sideOffset();
        if (!(offset > 0)) return {.usable = false};
        const double limit = ((Real(su.singleUpper ? upper : lower) - su.mode) / offset).value();
        if (su.singleUpper)
            return su.physLimitBelow ? AcceptanceBounds{0, limit} : AcceptanceBounds{-limit, farBound};
        return su.physLimitBelow ? AcceptanceBounds{limit, farBound} : AcceptanceBounds{0, -limit};
    }
    case Distribution::Uniform: return {lower - su.mode, upper - su.mode};
    case Distribution::None: break;
    }
    return {.usable = false};
}

/// Probability of acceptance of a normal parameter, in closed form.
double normalAcceptance(const SubjectBias& su, double mteSigma, double lower, double upper) {
    const Real spread = sqrt(Real(mteSigma) * mteSigma + Real(su.sigma) * su.sigma);
    const auto below = [&] { return Normal(((upper - Real(su.mode)) / spread).value()); };
    const auto above = [&] { return Normal(((Real(su.mode) - lower) / spread).value()); };
    if (su.twoSided) return below() + above() - 1;
    return su.singleUpper ? below() : above();
}

class RiskComputation {
  public:
    RiskComputation(Session& session, double lower, double upper, RiskReport report)
        : r_(session.record), ui_(session.ui), shown_(report == RiskReport::Shown), lower_(lower),
          upper_(upper), su_(subjectBiasOf(session.record)) {}

    /// Raises RuntimeFault.
    RiskOutcome run(double& falseAccept, double& falseReject) {
        if (su_.sigma == 0) return RiskOutcome::NoSpread;
        bounds_ = acceptanceBounds(su_, lower_, upper_);
        if (!bounds_.usable) return RiskOutcome::NoSpread;

        const AcceptanceIntegral joint = integrate("xy");
        if (joint.outcome == IntegralOutcome::Fault) return failed(RiskOutcome::FailedAndReported);
        if (joint.outcome == IntegralOutcome::NoScale) return RiskOutcome::NoSpread;
        if (joint.value < 0) return RiskOutcome::Negative;
        if (joint.value == 0) {
            r_.SearchAbort = true;
            return failed(RiskOutcome::Failed);
        }

        double accepted = 0;
        const bool uniform = su_.distribution == Distribution::Uniform;
        if (su_.distribution == Distribution::Normal) {
            accepted = normalAcceptance(su_, r_.MTE_Sigma, lower_, upper_);
        } else if (!uniform) {
            const AcceptanceIntegral marginal = integrate("y");
            if (marginal.outcome == IntegralOutcome::Fault) return failed(RiskOutcome::FailedAndReported);
            if (marginal.outcome == IntegralOutcome::NoScale) return RiskOutcome::NoSpread;
            accepted = marginal.value;
        }
        if (!uniform && accepted < 0) return RiskOutcome::Negative;
        if (!uniform && accepted == 0) return refused(guardbandUnrealistic);

        const double conforming = inTolerance(su_);
        if (conforming == 0) return refused(limitsUnrealistic);

        const double accept = uniform                     ? 0
                              : r_.FalseAcceptOption == 1 ? accepted - joint.value
                                                          : 1 - joint.value / accepted;
        const double reject = conforming - std::fabs(joint.value);
        falseAccept = checked(accept);
        falseReject = checked(reject);
        return RiskOutcome::Computed;
    }

  private:
    AcceptanceIntegral integrate(const char* kind) {
        return IntegrateAcceptance(kind, su_, bounds_.lo, bounds_.hi, r_.MTE_Sigma, eps,
                                   shown_ ? &ui_ : nullptr);
    }

    RiskOutcome failed(RiskOutcome outcome) {
        r_.AbortFlag = true;
        return outcome;
    }

    RiskOutcome refused(const Message& message) {
        if (shown_) tell(ui_, message);
        return failed(RiskOutcome::FailedAndReported);
    }

    Analysis& r_;
    Interaction& ui_;
    bool shown_;
    double lower_;
    double upper_;
    SubjectBias su_;
    AcceptanceBounds bounds_;
};

} // namespace

double inTolerance(const SubjectBias& su) {
    const auto atLimit = [&su](double x) { return Normal(su.logVariable(su.limitRatio(x))); };
    const auto offsetContent = [&su](double offset) { return Normal((Real(offset) / su.sigma).value()); };
    switch (su.caseCode) {
    case 1: return 1 - atLimit(su.physLimitBelow ? su.lowerLimit : su.upperLimit);
    case 2: return atLimit(su.physLimitBelow ? su.upperLimit : su.lowerLimit);
    case 3: {
        const double content = atLimit(su.upperLimit) - atLimit(su.lowerLimit);
        return su.physLimitBelow ? content : -content;
    }
    case 4: return offsetContent(su.lowerOffset);
    case 5: return offsetContent(su.upperOffset);
    case 6: return 2 * offsetContent(su.upperOffset) - 1;
    case 7: return std::exp(-su.expExponent);
    case 8: return 1 - std::exp(-su.expExponent);
    case 9: return 1;
    default: return 0;
    }
}

RiskOutcome ComputeRisks(Session& session, double lower, double upper, double& falseAccept,
                         double& falseReject, RiskReport report) noexcept {
    session.record.AbortFlag = false;
    try {
        if (report == RiskReport::Quiet)
            return RiskComputation(session, lower, upper, report).run(falseAccept, falseReject);
        const StatusText status(session.ui, computingText);
        return RiskComputation(session, lower, upper, report).run(falseAccept, falseReject);
    } catch (const RuntimeFault&) {
        session.record.AbortFlag = true;
        return RiskOutcome::Failed;
    }
}

} // namespace metrisk
