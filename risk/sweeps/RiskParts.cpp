#include "risk/sweeps/RiskParts.h"

#include "base/Real.h"
#include "numerics/CoverageFactor.h"
#include "record/AnalysisFields.h"
#include "risk/FittedSubject.h"
#include "risk/SubjectFit.h"
#include "risk/TestRisks.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace metrisk {

namespace {

constexpr double roundingError = 1e-9; // a risk no further below 0 is 0
constexpr double leastSinglePct = 51;

SubjectParameter withoutTexts(SubjectParameter subject) {
    eachSubjectParameter([&subject](const Field&, auto member) {
        if constexpr (std::is_same_v<decltype(member), std::string SubjectParameter::*>) subject.*member = {};
    });
    return subject;
}

std::optional<Budget> processOf(const Analysis& record, const Regional& regional) {
    try {
        return budgetOf(record, regional);
    } catch (const RuntimeFault&) {
        return std::nullopt;
    }
}

} // namespace

RiskParts::RiskParts(const Analysis& r, const Regional& regional)
    : subject_(withoutTexts(r)), fitted_(subjectBiasOf(r)), mteSigma_(r.MTE_Sigma),
      mteDegFreedom_(r.MTE_DegFreedom), process_(processOf(r, regional)),
      falseAcceptOption_(r.FalseAcceptOption) {}

std::optional<SubjectBias> RiskParts::subjectAt(double pctInTol) const {
    try {
        SubjectParameter entered = subject_;
        entered.SU_PctInTol = pctInTol;
        const SubjectBias bias = subjectBiasOf(fitSubject(entered, {}));
        const bool unbounded = bias.distribution == Distribution::Normal && !bias.twoSided;
        if (unbounded && pctInTol < leastSinglePct) return std::nullopt;
        return bias;
    } catch (const RuntimeFault&) {
    } catch (const FitRefusal&) {
    }
    return std::nullopt;
}

double RiskParts::coverageFactorAt(double pctInTol) const {
    if (!(pctInTol > 0 && pctInTol <= 100)) return 0;
    try {
        return std::max(0.0, CoverageFactor(pctInTol, mteDegFreedom_));
    } catch (const RuntimeFault&) {
        return 0;
    }
}

double RiskParts::mteSigmaOf(double offset, double coverageFactor, bool withProcess) const {
    if (!(offset > 0 && coverageFactor > 0)) return 0;
    try {
        const double bias = checked(offset / coverageFactor);
        if (withProcess) return process_ ? process_->with(bias) : 0;
        return bias;
    } catch (const RuntimeFault&) {
        return 0;
    }
}

std::optional<Risks> quietRisks(Risks risks) {
    for (double* risk : {&risks.falseAccept, &risks.falseReject}) {
        if (*risk < -roundingError) return std::nullopt;
        if (*risk < 0) *risk = 0;
    }
    return risks;
}

std::optional<Risks> quietRisks(const Probabilities& p, int falseAcceptOption) {
    if (!(p.joint > 0 && p.accepted > 0 && p.inTolerance > 0)) return std::nullopt;
    return quietRisks(risksOf(p, falseAcceptOption));
}

std::optional<Risks> quietRisks(const ExactRisks& exact, int falseAcceptOption) {
    if (!(exact.accepted.value > 0)) return std::nullopt;
    const Risks risks{exact.falseAccept(falseAcceptOption).value, exact.falseReject().value};
    const bool known = std::isfinite(risks.falseAccept) && std::isfinite(risks.falseReject);
    return known ? std::optional(risks) : std::nullopt;
}

AcceptanceRange RiskParts::rangeOf(double lowerMultiplier, double upperMultiplier) const {
    return {checked(-lowerMultiplier * subject_.SU_LowerOffset),
            checked(upperMultiplier * subject_.SU_UpperOffset)};
}

std::optional<Risks> RiskParts::risks(const SubjectBias& subject, double mteSigma, double lowerMultiplier,
                                      double upperMultiplier) const {
    if (!(mteSigma > 0)) return std::nullopt;
    try {
        const auto found = risksAt(subject, mteSigma, rangeOf(lowerMultiplier, upperMultiplier));
        if (found) return quietRisks(found->by(falseAcceptOption_));
    } catch (const RuntimeFault&) {
    }
    return std::nullopt;
}

std::optional<Risks> RiskParts::exactRisks(const SubjectBias& subject, double mteSigma,
                                           double lowerMultiplier, double upperMultiplier) const {
    if (!(mteSigma > 0)) return std::nullopt;
    try {
        const auto exact = metrisk::exactRisks(subject, mteSigma, rangeOf(lowerMultiplier, upperMultiplier));
        if (exact) return quietRisks(*exact, falseAcceptOption_);
    } catch (const RuntimeFault&) {
    }
    return std::nullopt;
}

} // namespace metrisk
