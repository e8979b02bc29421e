#include "risk/evaluate/Evaluate.h"

#include "base/DisplayRule.h"
#include "base/Real.h"
#include "record/Analysis.h"
#include "risk/BaselineModel.h"
#include "risk/FittedSubject.h"
#include "risk/MeasuringFit.h"
#include "risk/SubjectFit.h"
#include "risk/evaluate/EnteredSubject.h"

#include <cmath>

namespace metrisk {

namespace {

constexpr int uniformCase = 9;
constexpr int normalCase = 6;

Refusal refusalOf(const RuntimeFault& fault) {
    return {fault.kind == FaultKind::Argument ? RefusalKind::Entry : RefusalKind::Arithmetic, fault.routine,
            fault.number};
}

Refusal refusalOf(const FitRefusal& fit) {
    Refusal refusal(RefusalKind::Entry, "FitSubjectParameter");
    refusal.title = fit.title;
    refusal.text = fit.text;
    if (fit.box) refusal.box = fit.box;
    return refusal;
}

/// The one trap: what is thrown in the work becomes a value.
template <class Work>
auto asResult(Work work) -> Result<decltype(work())> {
    try {
        return work();
    } catch (const Refusal& refusal) {
        return refusal;
    } catch (const RuntimeFault& fault) {
        return refusalOf(fault);
    } catch (const FitRefusal& fit) {
        return refusalOf(fit);
    }
}

/// The mean offset when two-sided, else that of the existing side.
double ratioTolerance(const SubjectEntry& su) {
    if (su.sides == Sides::Two) return (su.lowerOffset + su.upperOffset) / 2;
    return su.sides == Sides::Upper ? su.upperOffset : su.lowerOffset;
}

/// The tolerances themselves give the ratio when the test is its own reference.
bool isOwnReference(const TestEntries& e, const TestFigures& figures) {
    return e.guardband.upper == 1 && e.guardband.lower == 1 && (!e.process || e.process->process == 0) &&
           e.subject.pctInTol == e.reference.subjectPct && e.measuring.pctInTol == e.reference.measuringPct &&
           figures.subject.caseCode == normalCase && !e.measuringCurveWithProcess && !e.excludedGuardband;
}

std::optional<double> searchedRatio(const TestEntries& e, const TestFigures& figures, Watch watch) {
    if (isOwnReference(e, figures)) return checked(e.subject.upperOffset / e.measuring.offset);
    const bool onAccept = e.ratioOnFalseAccept && figures.subject.caseCode != uniformCase;
    const Risks& risks = figures.by(e.convention);
    const auto notNegative = [](double risk) { return risk < 0 ? negativeRiskStandIn : risk; };
    const RatioQuestion question{
        .baseline = BaselineModel(e.reference.subjectPct / 100, e.reference.measuringPct / 100),
        .start = ratioTolerance(e.subject) / e.measuring.offset,
        .target = notNegative(onAccept ? risks.falseAccept : risks.falseReject),
        .onFalseAccept = onAccept,
        .falseAcceptOption = static_cast<int>(e.convention)};
    double ratio = 0;
    switch (searchRatio(question, ratio, watch)) {
    case RatioEnd::Found: return ratio;
    case RatioEnd::StepTooSmall: return std::nullopt;
    case RatioEnd::Stopped: break;
    }
    throw Refusal(RefusalKind::NoAnswer, "searchRatio", ratio);
}

std::optional<Risks> referenceRisks(const TestEntries& e) {
    const double subject = e.reference.subjectPct / 100, measuring = e.reference.measuringPct / 100;
    if (!isProbability(subject) || !isProbability(measuring) || !(e.reference.ratio > 0)) return std::nullopt;
    const Probabilities p = BaselineModel(subject, measuring).at(e.reference.ratio);
    if (p.joint == 0 || p.inTolerance == 0) return std::nullopt;
    return risksOf(p, static_cast<int>(e.convention));
}

TestFigures computed(const TestEntries& e, const Wanted& wanted, Watch watch) {
    if (const auto refusal = validate(e)) throw Refusal(*refusal);
    TestFigures figures;
    figures.subject = subjectBiasOf(fitSubject(enteredSubject(e.subject), {}));
    const MeasuringFit measuring = fitMeasuring(e.measuring, e.process ? &*e.process : nullptr);
    figures.kFactor = measuring.kFactor;
    figures.stdUncertainty = measuring.stdUncertainty;
    figures.mteSigma = measuring.sigma;
    const AcceptanceRange range{-e.guardband.lower * e.subject.lowerOffset,
                                e.guardband.upper * e.subject.upperOffset};
    const auto risks = risksAt(figures.subject, figures.mteSigma, range);
    if (!risks) throw Refusal(risks.refusal());
    static_cast<TestRisks&>(figures) = *risks;
    if (wanted.exact) figures.exact = exactRisks(figures.subject, figures.mteSigma, range);
    if (wanted.reference) figures.reference = referenceRisks(e);
    if (wanted.ratio) figures.ratio = searchedRatio(e, figures, watch);
    return figures;
}

} // namespace

Result<TestFigures> evaluate(const TestEntries& entries, const Wanted& wanted) {
    return evaluate(entries, wanted, [](const SearchPass&) { return true; });
}

Result<TestFigures> evaluate(const TestEntries& entries, const Wanted& wanted, Watch watch) {
    return asResult([&] { return computed(entries, wanted, watch); });
}

Result<TestEntries> entriesOf(const Analysis& r, const Regional& regional) {
    return asResult([&] {
        TestEntries e;
        e.subject = {.mode = r.SU_Mode,
                     .upperOffset = r.SU_UpperOffset,
                     .lowerOffset = r.SU_LowerOffset,
                     .upperLimit = r.SU_UpperLimit,
                     .lowerLimit = r.SU_LowerLimit,
                     .pctInTol = r.SU_PctInTol,
                     .sides = r.OptTwoSided      ? Sides::Two
                              : r.OptSingleUpper ? Sides::Upper
                                                 : Sides::Lower,
                     .physicalLimitRequired = r.PhysLimitRequired};
        if (r.PhysLimitRequired && r.PhysicalLimitEntered) e.subject.physicalLimit = r.PhysicalLimit;
        e.measuring = measuringEntryOf(r);
        if (r.IncludeUncertainty) e.process = budgetOf(r, regional);
        if (r.IncludeGuardbands) e.guardband = {r.GB_UpperMult, r.GB_LowerMult};
        e.excludedGuardband = !r.IncludeGuardbands && (r.GB_UpperMult != 1 || r.GB_LowerMult != 1);
        e.reference = {r.Base_AccRatDen > 0 ? r.Base_AccRatNum / r.Base_AccRatDen : 0, r.Base_SUPctInTol,
                       r.Base_MTEPctInTol};
        e.convention = r.FalseAcceptOption == 1 ? Convention::Producer : Convention::Consumer;
        e.ratioOnFalseAccept = r.EqRatioOnFalseAccept;
        e.measuringCurveWithProcess = r.MTEPlot_IncludeUncertainty;
        return e;
    });
}

} // namespace metrisk
