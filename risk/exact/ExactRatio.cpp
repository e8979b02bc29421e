#include "risk/exact/ExactRatio.h"

#include "base/NumberFormat.h"
#include "base/Real.h"
#include "numerics/BracketedRoot.h"
#include "record/Analysis.h"
#include "risk/BaselineModel.h"
#include "risk/RatioSearch.h"
#include "risk/exact/ExactRisks.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace metrisk {

namespace {

constexpr const char* ratioPicture = "#,##0.00";
const double lowest = std::log(0.01);
const double highest = std::log(10000);

/// How far the risk at a ratio is from the wanted one, both in logarithms; minus infinite for a risk of 0.
class Excess {
  public:
    Excess(const ExactRatioQuestion& question, double risk) : question_(question), logRisk_(std::log(risk)) {}

    double operator()(double logRatio) const {
        const auto risks =
            exactBaseline(std::exp(logRatio), question_.subjectInTol, question_.measuringInTol);
        if (!risks) return std::nan("");
        const double risk = question_.onFalseAccept ? risks->falseAccept(question_.falseAcceptOption).value
                                                    : risks->falseReject().value;
        return std::log(std::max(risk, 0.0)) - logRisk_;
    }

  private:
    ExactRatioQuestion question_;
    double logRisk_;
};

/// The root that secants of the told model lead to from a ratio nearby, settled by exact values; none where
/// they do not come near enough to rounding.
std::optional<double> bySecants(const ExactRatioQuestion& question, double risk, const Excess& excess,
                                double start) {
    constexpr double wide = 1e-6;     // of a secant that tells the slope
    constexpr double told = 1e-9;     // as near as the told model has to come
    constexpr double settled = 1e-12; // one step by the told slope leaves rounding
    constexpr double again = 1e-7;    // and one by a secant of exact values does
    try {
        const BaselineModel model(question.subjectInTol, question.measuringInTol);
        const auto at = [&](double x) -> CurvePoint {
            const Probabilities p = model.at(std::exp(x));
            const double here =
                question.onFalseAccept ? falseAcceptOf(p, question.falseAcceptOption) : falseRejectOf(p);
            return {x, std::log(here / risk)};
        };
        CurvePoint last = at(start), now = at(start + 0.001);
        double slope = (now.y - last.y) / (now.x - last.x);
        for (int pass = 0; pass < 6 && std::fabs(now.y) > told; ++pass) {
            last = now;
            now = at(now.x - now.y / slope);
            if (std::fabs(now.x - last.x) > wide) slope = (now.y - last.y) / (now.x - last.x);
        }
        constexpr double furthest = 0.01, steep = 0.1; // no other root can be as near
        const bool inside = now.x > lowest && now.x < highest && std::fabs(now.x - start) < furthest;
        if (!(inside && std::fabs(now.y) <= told && std::fabs(slope) > steep)) return std::nullopt;
        const CurvePoint first{now.x, excess(now.x)};
        const double x = first.x - first.y / slope;
        if (std::fabs(first.y) <= settled) return x;
        const CurvePoint second{x, excess(x)};
        if (!(std::fabs(second.y) <= again)) return std::nullopt;
        return second.y == first.y ? x : x - second.y * (second.x - first.x) / (second.y - first.y);
    } catch (const RuntimeFault&) {
        return std::nullopt;
    }
}

std::optional<double> between(const Excess& excess, CurvePoint a, CurvePoint b) {
    if (a.y == 0) return a.x;
    if (b.y == 0) return b.x;
    if (!((a.y < 0) != (b.y < 0)) || std::isnan(a.y) || std::isnan(b.y)) return std::nullopt;
    return bracketedRoot(excess, a, b, 0);
}

/// Both risks of an accepted item fall all along as the ratio grows.
std::optional<double> onFallingCurve(const Excess& excess, std::optional<double> near) {
    double step = 0.01;
    const double start = std::clamp(near.value_or(std::log(4)), lowest, highest);
    CurvePoint last{start, excess(start)};
    if (last.y == 0) return start;
    const double direction = last.y > 0 ? 1 : -1;
    const double end = last.y > 0 ? highest : lowest;
    while (last.x != end) {
        const double x = std::clamp(last.x + direction * step, lowest, highest);
        const CurvePoint now{x, excess(x)};
        if (const auto root = between(excess, last, now)) return root;
        if (std::isnan(now.y)) return std::nullopt;
        last = now;
        step *= 4;
    }
    return std::nullopt;
}

/// The place of the largest value between the neighbours of a point that is higher than both, by the golden
/// section.
CurvePoint peakOf(const Excess& excess, double low, double high) {
    constexpr double golden = 0.6180339887498949;
    constexpr double narrow = 1e-8; // where the curve is level to rounding
    double inner = high - golden * (high - low);
    double outer = low + golden * (high - low);
    double atInner = excess(inner);
    double atOuter = excess(outer);
    while (high - low > narrow) {
        if (atInner < atOuter) {
            low = inner;
            inner = outer;
            atInner = atOuter;
            outer = low + golden * (high - low);
            atOuter = excess(outer);
        } else {
            high = outer;
            outer = inner;
            atOuter = atInner;
            inner = high - golden * (high - low);
            atInner = excess(inner);
        }
    }
    return atInner > atOuter ? CurvePoint{inner, atInner} : CurvePoint{outer, atOuter};
}

/// The Producer's false accept risk rises while hardly anything is accepted, and falls from its largest on.
std::optional<double> onPeakedCurve(const Excess& excess, std::optional<double> near) {
    constexpr int last = 24;
    std::array<CurvePoint, last + 1> points;
    for (int i = 0; i <= last; ++i) {
        const double x = lowest + (highest - lowest) * i / last;
        points[static_cast<std::size_t>(i)] = {x, excess(x)};
    }
    const auto top = std::max_element(points.begin(), points.end(),
                                      [](const CurvePoint& a, const CurvePoint& b) { return a.y < b.y; });
    if (std::isnan(top->y)) return std::nullopt;
    CurvePoint peak = *top;
    if (peak.y <= 0 && top != points.begin() && top != points.end() - 1)
        peak = peakOf(excess, (top - 1)->x, (top + 1)->x);
    const auto below = between(excess, points.front(), peak);
    const auto above = between(excess, peak, points.back());
    if (!below || !above) return below ? below : above;
    return near && std::fabs(*below - *near) < std::fabs(*above - *near) ? below : above;
}

} // namespace

ExactRatioQuestion exactRatioQuestion(const Analysis& r) {
    // A uniform parameter has no false accepts to search on.
    return {r.Base_SUPctInTol / 100, r.Base_MTEPctInTol / 100, r.EqRatioOnFalseAccept && r.SU_CaseCode != 9,
            r.FalseAcceptOption};
}

std::optional<double> exactRatio(const ExactRatioQuestion& question, double risk,
                                 std::optional<double> near) {
    if (!(risk > 0 && risk < 1)) return std::nullopt;
    std::optional<double> start;
    if (near && ratioAttained(*near)) start = std::log(*near);
    const Excess excess(question, risk);
    if (start)
        if (const auto found = bySecants(question, risk, excess, *start)) return std::exp(*found);
    const bool peaked = question.onFalseAccept && question.falseAcceptOption == 1;
    const auto found = peaked ? onPeakedCurve(excess, start) : onFallingCurve(excess, start);
    if (!found || std::isnan(*found)) return std::nullopt;
    return std::exp(*found);
}

std::string exactRatioRemark(double told, const std::string& toldText, const std::optional<double>& exact,
                             const Regional& regional) {
    const bool toldAny = ratioAttained(told);
    if (!exact) return toldAny ? "Exact integration gives no such ratio." : "";
    const std::string text = FormatNumber(*exact, ratioPicture, regional);
    return toldAny && text == toldText ? "" : "Exact integration gives " + text + " : 1.";
}

} // namespace metrisk
