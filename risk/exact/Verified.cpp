#include "risk/exact/Verified.h"

#include "base/NumberFormat.h"
#include "base/Picture.h"
#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "base/RiskText.h"
#include "record/Analysis.h"
#include "risk/BaselineModel.h"
#include "risk/FittedSubject.h"
#include "risk/exact/ExactRatio.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace metrisk {

namespace {

constexpr int mostDigits = 15;

double baselineRatio(const Analysis& r) {
    return r.Base_AccRatDen > 0 ? r.Base_AccRatNum / r.Base_AccRatDen : 0;
}

struct ReferenceCase {
    double ratio = 0, subjectInTol = 0, measuringInTol = 0;
    int falseAcceptOption = 0;

    friend bool operator==(const ReferenceCase&, const ReferenceCase&) = default;
};

Verified verified(const ReferenceCase& of) {
    Verified verified;
    const auto exact = exactBaseline(of.ratio, of.subjectInTol, of.measuringInTol);
    if (!exact) return verified;
    try {
        const Risks published =
            risksOf(BaselineModel(of.subjectInTol, of.measuringInTol).at(of.ratio), of.falseAcceptOption);
        verified.baselineFalseAccept = {notNegative(published.falseAccept),
                                        exact->falseAccept(of.falseAcceptOption)};
        verified.baselineFalseReject = {notNegative(published.falseReject), exact->falseReject()};
    } catch (const RuntimeFault&) { // nothing is published
    }
    return verified;
}

} // namespace

/// A thread keeps the last ones: the analyses of a batch have few reference cases.
Verified verifyBaseline(double ratio, double subjectInTol, double measuringInTol, int falseAcceptOption) {
    struct Kept {
        ReferenceCase of; // no reference case at first, whose figures are none
        Verified figures;
    };
    thread_local std::array<Kept, 8> kept;
    thread_local std::size_t oldest = 0;
    const ReferenceCase wanted{ratio, subjectInTol, measuringInTol, falseAcceptOption};
    for (const Kept& one : kept)
        if (one.of == wanted) return one.figures;
    Kept& one = kept[oldest];
    oldest = (oldest + 1) % kept.size();
    one = {wanted, verified(wanted)};
    return one.figures;
}

Verified verifyRisks(const Analysis& r, const Risks& published, AcceptanceRange range) {
    Verified verified = verifyBaseline(baselineRatio(r), r.Base_SUPctInTol / 100, r.Base_MTEPctInTol / 100,
                                       r.FalseAcceptOption);
    if (!r.SubjectFitValid || !(r.MTE_Sigma > 0)) return verified;
    if (const auto exact = exactRisks(subjectBiasOf(r), r.MTE_Sigma, range)) {
        verified.falseAccept = {published.falseAccept, exact->falseAccept(r.FalseAcceptOption)};
        verified.falseReject = {published.falseReject, exact->falseReject()};
        verified.exact = exact;
    }
    return verified;
}

Verified verifyRisks(const Analysis& r) {
    const double lower = r.IncludeGuardbands ? r.GB_LowerMult : 1;
    const double upper = r.IncludeGuardbands ? r.GB_UpperMult : 1;
    return verifyRisks(r,
                       {riskFraction(r.FalseAcceptRisk, r.FalseAcceptUnits),
                        riskFraction(r.FalseRejectRisk, r.FalseRejectUnits)},
                       {-lower * r.SU_LowerOffset, upper * r.SU_UpperOffset});
}

std::optional<double> exactRatio(const Analysis& r, const Verified& verified) {
    const ExactRatioQuestion question = exactRatioQuestion(r);
    const auto& key = question.onFalseAccept ? verified.falseAccept : verified.falseReject;
    if (!key) return {};
    return exactRatio(question, key->exact.value, r.EqAccRat);
}

int agreeingDigits(const VerifiedFigure& figure) {
    const double difference = std::fabs(figure.published - figure.exact.value);
    const double size = std::max(std::fabs(figure.published), std::fabs(figure.exact.value));
    if (difference <= size * 1e-15) return mostDigits;
    return std::clamp(static_cast<int>(-std::log10(difference / size)), 0, mostDigits);
}

std::optional<int> agreeingDigits(const Verified& verified) {
    std::optional<int> fewest;
    for (const auto* figure : {&verified.falseAccept, &verified.falseReject, &verified.baselineFalseAccept,
                               &verified.baselineFalseReject})
        if (*figure) fewest = std::min(fewest.value_or(mostDigits), agreeingDigits(**figure));
    return fewest;
}

std::string exactRemark(const std::optional<VerifiedFigure>& figure, RiskPicture picture,
                        const Regional& regional) {
    if (!figure) return "";
    const auto shownText = [&](double fraction) {
        const ShownRisk shown = shownRisk(fraction);
        return riskText(shown, picture(shown.units), regional) + " " + shown.units;
    };
    if (shownText(figure->published) == shownText(figure->exact.value)) return "";
    const ShownRisk exact = shownRisk(figure->exact.value);
    constexpr double leastTold = 1e-6; // of a ppm; a picture holds no more decimals
    if (exact.units == ppmUnits && exact.value < leastTold) return "Exact integration gives < 1 ppm.";
    const char* least = exact.units == ppmUnits ? "##0.00" : "##0.0000";
    return "Exact integration gives " +
           FormatNumber(exact.value, WidenPicture(exact.value, least), regional) + " " + exact.units + ".";
}

} // namespace metrisk
