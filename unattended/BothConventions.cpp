#include "unattended/BothConventions.h"

#include "base/DisplayRule.h"
#include "base/Real.h"
#include "risk/FittedSubject.h"
#include "risk/RatioSearch.h"
#include "risk/RiskModel.h"
#include "uncertainty/Budget.h"

namespace metrisk {

namespace {

double degFreedomOf(const AnalysisRun& run) {
    const Analysis& r = run.record;
    return r.IncludeUncertainty ? CombinedUncertainty(r, run.session.regional).degFreedom : r.MTE_DegFreedom;
}

AcceptanceRange rangeOf(const Analysis& r) {
    const double lower = r.IncludeGuardbands ? r.GB_LowerMult : 1;
    const double upper = r.IncludeGuardbands ? r.GB_UpperMult : 1;
    return {-lower * r.SU_LowerOffset, upper * r.SU_UpperOffset};
}

Json figure(const BoundedFigure& exact) {
    return {{"value", exact.value}, {"bound", exact.bound}};
}

} // namespace

std::optional<BothConventions> bothConventions(const AnalysisRun& run, const CoverageChoice& coverage,
                                               double falseAccept, const std::optional<ExactRisks>& exact) {
    const Analysis& r = run.record;
    try {
        const auto p = RiskModel(subjectBiasOf(r), r.MTE_Sigma).at(rangeOf(r));
        const auto factor = coverageFactor(coverage, degFreedomOf(run));
        if (!p || !factor) return std::nullopt;
        const bool producers = r.FalseAcceptOption == 1;
        BothConventions both;
        both.consumer = producers ? notNegative(falseAcceptOf(*p, 0)) : falseAccept;
        both.producer = producers ? falseAccept : notNegative(falseAcceptOf(*p, 1));
        both.exact = exact;
        both.ratios = ratiosOf(ratioTolerance(r), r.MTE_Sigma, *factor);
        both.uncertaintyRatio = r.SU_Sigma / r.MTE_Sigma;
        both.coverage = *factor;
        both.expanded = *factor * r.MTE_Sigma;
        return both;
    } catch (const RuntimeFault&) {
        return std::nullopt;
    }
}

void putBoth(Json& object, const std::optional<BothConventions>& both) {
    const auto put = [&](const char* key, auto&& value) { object[key] = both ? Json(value(*both)) : Json(); };
    using Both = BothConventions;
    put("FalseAcceptConsumer", [](const Both& b) { return b.consumer; });
    put("FalseAcceptProducer", [](const Both& b) { return b.producer; });
    const auto putExact = [&](const char* key, BoundedFigure ExactRisks::*member) {
        object[key] = both && both->exact ? Json((*both->exact.*member).value) : Json();
    };
    putExact("Accepted", &ExactRisks::accepted);
    putExact("InTolerance", &ExactRisks::inTolerance);
    put("TUR", [](const Both& b) { return b.ratios.tur; });
    put("UncertaintyRatio", [](const Both& b) { return b.uncertaintyRatio; });
    put("CoverageFactor", [](const Both& b) { return b.coverage; });
    put("ExpandedUncertainty", [](const Both& b) { return b.expanded; });
    put("ToleranceToUncertainty", [](const Both& b) { return b.ratios.toleranceToUncertainty; });
}

void putVerified(Json& object, const std::optional<BothConventions>& both) {
    const ExactRisks* exact = both && both->exact ? &*both->exact : nullptr;
    object["FalseAcceptConsumer"] = exact ? figure(exact->falseAccept(0)) : Json();
    object["FalseAcceptProducer"] = exact ? figure(exact->falseAccept(1)) : Json();
    object["Accepted"] = exact ? figure(exact->accepted) : Json();
    object["InTolerance"] = exact ? figure(exact->inTolerance) : Json();
}

} // namespace metrisk
