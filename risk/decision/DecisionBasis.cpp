#include "risk/decision/DecisionBasis.h"

#include "base/Real.h"
#include "risk/FittedSubject.h"
#include "risk/MeasuringFit.h"
#include "risk/SubjectFit.h"
#include "risk/decision/Coverage.h"
#include "risk/decision/Refused.h"
#include "risk/evaluate/EnteredSubject.h"
#include "risk/evaluate/Evaluate.h"

#include <cmath>
#include <limits>

namespace metrisk {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr const char* noFitText = "These entries allow no fit of the subject parameter.";
constexpr const char* subjectTitle = "Subject Parameter";

} // namespace

double DecisionBasis::halfWidth() const {
    if (twoSided()) return (subject.upperOffset + subject.lowerOffset) / 2;
    return hasUpper() ? subject.upperOffset : subject.lowerOffset;
}

double DecisionBasis::vanishingWidth() const {
    if (twoSided()) return halfWidth();
    if (!subject.physicalLimitRequired || !subject.physicalLimit) return infinite;
    const double behind =
        hasUpper() ? subject.mode - *subject.physicalLimit : *subject.physicalLimit - subject.mode;
    return behind >= 0 ? halfWidth() + behind : infinite;
}

Interval DecisionBasis::narrowed(double lowerWidth, double upperWidth) const {
    return {hasLower() ? lowerWidth - subject.lowerOffset : -infinite,
            hasUpper() ? subject.upperOffset - upperWidth : infinite};
}

Interval DecisionBasis::tolerance() const {
    return narrowed(0, 0);
}

Interval DecisionBasis::testLimits() const {
    return {hasLower() ? -guardband.lower * subject.lowerOffset : -infinite,
            hasUpper() ? guardband.upper * subject.upperOffset : infinite};
}

Result<SubjectBias> fittedBias(const SubjectEntry& subject) {
    try {
        return subjectBiasOf(fitSubject(enteredSubject(subject), {}));
    } catch (const RuntimeFault&) {
        return refusedFigure(subjectTitle, noFitText);
    } catch (const FitRefusal& fit) {
        return refusedFigure(subjectTitle, fit.text);
    }
}

Result<DecisionBasis> decisionBasis(const SubjectEntry& subject, double sigma, double degFreedom) {
    if (!(sigma > 0) || !std::isfinite(sigma)) return refusedFigure(decisionTitle, uncertaintyNeeded);
    DecisionBasis basis{.subject = subject, .sigma = sigma, .degFreedom = countedDegFreedom(degFreedom)};
    if (!(basis.halfWidth() > 0)) return refusedFigure(decisionTitle, toleranceNeeded);
    basis.coverage = *coverageFactor({}, basis.degFreedom);
    basis.fit = fittedBias(subject);
    return basis;
}

Result<DecisionBasis> decisionBasis(const TestEntries& entries) {
    if (auto refusal = validate(entries)) return *refusal;
    try {
        const MeasuringEntry& measuring = entries.measuring;
        const MeasuringFit fit = fitMeasuring(measuring, entries.process ? &*entries.process : nullptr);
        const double degFreedom =
            entries.process ? entries.process->combined(fit.stdUncertainty, measuring.degFreedom).degFreedom
                            : measuring.degFreedom;
        auto basis = decisionBasis(entries.subject, fit.sigma, degFreedom);
        if (!basis) return basis;
        DecisionBasis whole = *basis;
        whole.guardband = entries.guardband;
        whole.convention = entries.convention;
        whole.withProcess = entries.process.has_value();
        return whole;
    } catch (const RuntimeFault&) {
        return refusedFigure(decisionTitle, uncertaintyNeeded);
    }
}

} // namespace metrisk
