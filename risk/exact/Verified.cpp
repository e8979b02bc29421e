#include "risk/exact/Verified.h"

#include "model/Analysis.h"
#include "model/NumberFormat.h"
#include "model/Picture.h"
#include "model/RelativeUnits.h"
#include "model/RiskText.h"
#include "numerics/Real.h"
#include "risk/BaselineRisks.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr int mostDigits = 15;

double baselineRatio(const Analysis& r) {
    return r.Base_AccRatDen > 0 ? r.Base_AccRatNum / r.Base_AccRatDen : 0;
}

} // namespace

Verified verifyBaseline(double ratio, double subjectInTol, double measuringInTol, int falseAcceptOption) {
    Verified verified;
    const auto exact = exactBaseline(ratio, subjectInTol, measuringInTol);
    if (!exact) return verified;
    try {
        const Risks published =
            risksOf(BaselineModel(subjectInTol, measuringInTol).at(ratio), falseAcceptOption);
        verified.baselineFalseAccept = {notNegative(published.falseAccept),
                                        exact->falseAccept(falseAcceptOption)};
        verified.baselineFalseReject = {notNegative(published.falseReject), exact->falseReject()};
    } catch (const RuntimeFault&) { // nothing is published
    }
    return verified;
}

Verified verifyRisks(const Analysis& r, const Risks& published, AcceptanceRange range) {
    Verified verified = verifyBaseline(baselineRatio(r), r.Base_SUPctInTol / 100, r.Base_MTEPctInTol / 100,
                                       r.FalseAcceptOption);
    if (!r.SubjectFitValid || !(r.MTE_Sigma > 0)) return verified;
    if (const auto exact = exactRisks(subjectBiasOf(r), r.MTE_Sigma, range)) {
        verified.falseAccept = {published.falseAccept, exact->falseAccept(r.FalseAcceptOption)};
        verified.falseReject = {published.falseReject, exact->falseReject()};
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
    const auto& key = r.EqRatioOnFalseAccept ? verified.falseAccept : verified.falseReject;
    if (!key || !(key->exact.value > 0) || !(r.EqAccRat > 0)) return {};
    /// How far the risk at a ratio is from the wanted one, in logarithms.
    const auto excess = [&](double logRatio) -> std::optional<double> {
        const auto risks =
            exactBaseline(std::exp(logRatio), r.Base_SUPctInTol / 100, r.Base_MTEPctInTol / 100);
        if (!risks) return {};
        const double risk = r.EqRatioOnFalseAccept ? risks->falseAccept(r.FalseAcceptOption).value
                                                   : risks->falseReject().value;
        return risk > 0 ? std::optional(std::log(risk / key->exact.value)) : std::nullopt;
    };
    constexpr double near = 1e-9;
    constexpr double longestStep = 0.7;
    double before = std::log(r.EqAccRat);
    double at = before + 1e-3;
    auto last = excess(before);
    for (int pass = 0; pass < 30 && last; ++pass) {
        if (*last == 0) return std::exp(before);
        const auto now = excess(at);
        if (!now || *now == *last) break;
        const double step = std::clamp(-*now * (at - before) / (*now - *last), -longestStep, longestStep);
        before = at;
        last = now;
        at += step;
        if (std::fabs(step) < near) return std::exp(at);
    }
    return {};
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
    const char* least = exact.units == ppmUnits ? "##0.00" : "##0.0000";
    return "Exact integration gives " +
           FormatNumber(exact.value, WidenPicture(exact.value, least), regional) + " " + exact.units + ".";
}

} // namespace metrisk
