#include "risk/decision/RecordDecision.h"

#include "base/NumberFormat.h"
#include "base/Picture.h"
#include "record/ToleranceUnits.h"
#include "risk/evaluate/Evaluate.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

Result<DecisionBasis> decisionBasis(const Analysis& record, const Regional& regional,
                                    const CoverageChoice& coverage) {
    const auto entries = entriesOf(record, regional);
    if (!entries) return entries.refusal();
    auto found = decisionBasis(*entries);
    if (!found) return found;
    DecisionBasis basis = *found;
    const auto factor = coverageFactor(coverage, basis.degFreedom);
    if (!factor) return factor.refusal();
    basis.coverage = *factor;
    return basis;
}

DecisionTexts decisionTexts(const Analysis& record, const Regional& regional, double expanded) {
    const ToleranceUnits measuring = measuringUnits(record);
    const bool nominal = measuring.isPpm() || measuring.name.empty();
    const double factor = nominal ? 1 : measuring.factor;
    const std::string widthUnits = nominal ? record.NominalUnits : std::string(measuring.name);
    const int shown =
        std::max({PictureDecimals(record.SU_Mode_fmt), PictureDecimals(record.SU_UpperOffset_fmt),
                  PictureDecimals(record.SU_LowerOffset_fmt)});
    const int decimals = decimalsOfLimits(shown, expanded);
    const std::string units = record.NominalUnits;
    return {.reading = [=](double reading) { return withUnits(GeneralText(reading, regional), units); },
            .width =
                [=](double width) {
                    const double value = width * factor;
                    return withUnits(
                        FormatNumber(value, PictureForDecimals(decimalsOfWidth(std::fabs(value))), regional),
                        widthUnits);
                },
            .limit =
                [=](double limit, bool upper) {
                    return FormatNumber(inwards(limit, decimals, upper), PictureForDecimals(decimals),
                                        regional);
                },
            .unit = units,
            .regional = regional};
}

Result<DecisionPrior> populationPrior(const DecisionBasis& basis) {
    if (!basis.fit) return basis.fit.refusal();
    return DecisionPrior{*basis.fit,
                         "population of " + GeneralText(basis.subject.pctInTol, {}, 6) + " % in tolerance"};
}

} // namespace metrisk
