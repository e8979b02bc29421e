#include "risk/guardband/ExactGuardband.h"

#include "base/DisplayRule.h"
#include "base/NumberFormat.h"
#include "base/Picture.h"
#include "numerics/BracketedRoot.h"
#include "record/Analysis.h"
#include "record/SubjectSide.h"
#include "risk/FittedSubject.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

/// The acceptance limits at one multiplier or k-factor.
AcceptanceRange rangeAt(const Analysis& r, GuardbandForm form, double x) {
    if (form == GuardbandForm::KFactor)
        return {r.MTE_Sigma * x - r.SU_LowerOffset, r.SU_UpperOffset - r.MTE_Sigma * x};
    return {-x * r.SU_LowerOffset, x * r.SU_UpperOffset};
}

std::optional<ExactRisks> risksWithin(const Analysis& r, AcceptanceRange range) {
    if (!r.SubjectFitValid || !(r.MTE_Sigma > 0)) return std::nullopt;
    auto risks = exactRisks(subjectBiasOf(r), r.MTE_Sigma, range);
    if (risks && !(risks->accepted.value > 0)) risks.reset(); // of nothing accepted there is no share
    return risks;
}

const BoundedFigure& larger(const BoundedFigure& a, const BoundedFigure& b) {
    return a.value > b.value ? a : b;
}

/// 0 where the target is met, in logarithms, so that small risks count like large ones.
double excess(const Analysis& r, const GuardbandTarget& target, const std::optional<ExactRisks>& risks) {
    if (!risks) return std::nan("");
    const double accept = std::max(risks->falseAccept(r.FalseAcceptOption).value, 0.0);
    const double reject = std::max(risks->falseReject().value, 0.0);
    switch (target.key) {
    case GuardbandKey::FalseAccept: return std::log(accept / target.risk);
    case GuardbandKey::FalseReject: return std::log(reject / target.risk);
    case GuardbandKey::Equalize: break;
    }
    return std::log(accept / reject);
}

/// One unit of the last digit that the worksheet shows of a risk, as a fraction.
double lastShownDigit(double risk) {
    const ShownRisk shown = shownRisk(risk);
    const bool ppm = shown.units == ppmUnits;
    const int decimals = PictureDecimals(WidenPicture(shown.value, ppm ? "##0.0" : "##0.0000"));
    return riskFraction(std::pow(10, -decimals), shown.units);
}

} // namespace

std::optional<double> exactGuardband(const Analysis& r, GuardbandForm form, const GuardbandTarget& target,
                                     double near) {
    const auto at = [&](double x) { return excess(r, target, risksWithin(r, rangeAt(r, form, x))); };
    const CurvePoint start{near, at(near)};
    if (std::isnan(start.y)) return std::nullopt;
    if (start.y == 0) return near;
    constexpr double furthest = 1e4; // of a multiplier, and of a k-factor
    CurvePoint up = start, down = start;
    for (double step = 1e-4 * std::max(std::fabs(near), 1.0); step < furthest; step *= 2) {
        for (CurvePoint* end : {&down, &up}) {
            if (std::isnan(end->y)) continue;
            double x = end->x + (end == &up ? step : -step);
            if (form == GuardbandForm::Multiplier && x <= 0) x = end->x / 2;
            const CurvePoint next{x, at(x)};
            if (!std::isnan(next.y) && (next.y < 0) != (start.y < 0)) {
                const double root = bracketedRoot(at, *end, next, 0);
                return std::isnan(root) ? std::nullopt : std::optional(root);
            }
            *end = next;
        }
    }
    return std::nullopt;
}

std::optional<MissedTarget> missedTarget(const Analysis& r, GuardbandForm form,
                                         const GuardbandTarget& target) {
    const auto risks =
        risksWithin(r, {-r.GB_LowerMult * r.SU_LowerOffset, r.GB_UpperMult * r.SU_UpperOffset});
    if (!risks) return std::nullopt;
    const BoundedFigure accept = risks->falseAccept(r.FalseAcceptOption);
    const BoundedFigure& reject = risks->falseReject();
    const bool equal = target.key == GuardbandKey::Equalize;
    const BoundedFigure& keyed = equal                                     ? larger(accept, reject)
                                 : target.key == GuardbandKey::FalseReject ? reject
                                                                           : accept;
    const double wanted = equal ? std::min(accept.value, reject.value) : target.risk;
    if (!(std::fabs(keyed.value - wanted) > lastShownDigit(wanted))) return std::nullopt;
    const SubjectSide& side = presentSide(r);
    return MissedTarget{
        form, keyed,
        exactGuardband(r, form, target,
                       form == GuardbandForm::KFactor ? r.*side.kFactor : r.*side.multiplier)};
}

std::string missedTargetText(const MissedTarget& missed, const Regional& regional) {
    const ShownRisk risk = shownRisk(missed.risk.value);
    const char* picture = risk.units == ppmUnits ? "##0.0" : "##0.0000";
    const bool tiny = risk.units == ppmUnits && risk.value < 1;
    std::string text =
        "Exact integration gives " +
        (tiny ? "< 1" : FormatNumber(risk.value, WidenPicture(risk.value, picture), regional)) + " " +
        risk.units + " for these guardbands; ";
    const char* form = missed.form == GuardbandForm::KFactor ? "k-factor" : "multiplier";
    if (!missed.guardband) return text + "no " + form + " meets the target.";
    return text + "a " + form + " of " + FormatNumber(*missed.guardband, "#,##0.00000000", regional) +
           " meets the target.";
}

} // namespace metrisk
