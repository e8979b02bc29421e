#include "risk/decision/WorstCase.h"

#include "numerics/BracketedMaximum.h"
#include "risk/decision/GuardbandWidth.h"
#include "risk/decision/Refused.h"
#include "risk/decision/ShownFigures.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace metrisk {

namespace {

constexpr std::size_t scanned = 97;
constexpr double place = 1e-8; // in logits
constexpr double nearby = 0.3; // logits that the worst place moves by at most from one guard band to the next
constexpr int mostPasses = 60;
constexpr double lowest = -std::numeric_limits<double>::infinity();
constexpr const char* worstTitle = "Worst Case";

double logitOf(double pct) {
    return std::log(pct / (100 - pct));
}

} // namespace

PctRange wholeRange(const DecisionBasis& basis) {
    const bool oneSidedNormal = !basis.twoSided() && !basis.subject.physicalLimitRequired;
    return {oneSidedNormal ? 50.001 : 1, 99.9};
}

WorstCaseSearch::WorstCaseSearch(const DecisionBasis& basis, PctRange range) : basis_(basis), range_(range) {
    const double from = logitOf(range.from), to = logitOf(range.to);
    for (std::size_t i = 0; i < scanned; ++i) {
        const double logit = from + (to - from) * static_cast<double>(i) / (scanned - 1);
        const double pct = i == 0 ? range.from : i == scanned - 1 ? range.to : pctAt(logit);
        places_.push_back({logit, pct, fitAt(pct)});
    }
}

double WorstCaseSearch::pctAt(double logit) const {
    if (!places_.empty() && logit == places_.front().logit) return range_.from;
    if (places_.size() == scanned && logit == places_.back().logit) return range_.to;
    return std::clamp(100 / (1 + std::exp(-logit)), range_.from, range_.to);
}

std::optional<SubjectBias> WorstCaseSearch::fitAt(double pct) const {
    SubjectEntry entry = basis_.subject;
    entry.pctInTol = pct;
    const auto fit = fittedBias(entry);
    return fit ? std::optional(*fit) : std::nullopt;
}

std::optional<GuardedRisks> WorstCaseSearch::at(double pct, const Interval& testLimits) const {
    const auto fit = fitAt(pct);
    return fit ? guardedRisks(*fit, basis_.sigma, testLimits) : std::nullopt;
}

double WorstCaseSearch::valueAt(double logit, const Interval& testLimits, Convention convention) const {
    const auto risks = at(pctAt(logit), testLimits);
    return risks ? risks->falseAccept(convention) : lowest;
}

WorstCase WorstCaseSearch::between(double from, double to, const Interval& testLimits,
                                   Convention convention) const {
    const auto value = [&](double logit) { return valueAt(logit, testLimits, convention); };
    const CurvePoint peak = bracketedMaximum(value, from, to, place);
    WorstCase found{
        .falseAccept = peak.y, .pctInTol = pctAt(peak.x), .atEndOfRange = false, .risks = {}, .skipped = 0};
    for (const double end : {from, to}) {
        const double there = value(end);
        if (!(there >= found.falseAccept)) continue;
        found.falseAccept = there;
        found.pctInTol = pctAt(end);
        found.atEndOfRange = true;
    }
    return found;
}

std::optional<WorstCase> WorstCaseSearch::worst(const Interval& testLimits, Convention convention) const {
    std::size_t best = scanned, skipped = 0;
    double highest = lowest;
    for (std::size_t i = 0; i < scanned; ++i) {
        if (!places_[i].fit) {
            ++skipped;
            continue;
        }
        const auto risks = guardedRisks(*places_[i].fit, basis_.sigma, testLimits);
        if (!risks || !(risks->falseAccept(convention) > highest)) continue;
        highest = risks->falseAccept(convention);
        best = i;
    }
    if (best == scanned) return std::nullopt;

    double from = places_[best == 0 ? 0 : best - 1].logit;
    double to = places_[std::min(best + 1, scanned - 1)].logit;
    // The fits may end within the range: to where they do.
    const auto edge = [&](std::size_t beyond) {
        double outside = places_[beyond].logit, inside = places_[best].logit;
        while (std::fabs(outside - inside) > place) {
            const double middle = (outside + inside) / 2;
            (fitAt(pctAt(middle)) ? inside : outside) = middle;
        }
        return inside;
    };
    const bool lowEdge = best > 0 && !places_[best - 1].fit;
    const bool highEdge = best + 1 < scanned && !places_[best + 1].fit;
    if (lowEdge) from = edge(best - 1);
    if (highEdge) to = edge(best + 1);
    WorstCase found = between(from, to, testLimits, convention);
    // An end of the bracket is an end only where the range, or the fits, end there.
    const bool low = best == 0 || lowEdge, high = best + 1 == scanned || highEdge;
    found.atEndOfRange = found.atEndOfRange && (found.pctInTol < places_[best].pct || best == 0 ? low : high);
    if (found.falseAccept < highest) found.falseAccept = highest, found.pctInTol = places_[best].pct;
    found.skipped = skipped;
    if (const auto risks = at(found.pctInTol, testLimits)) found.risks = *risks;
    return found;
}

std::optional<WorstCase> WorstCaseSearch::worstNear(double pctInTol, const Interval& testLimits,
                                                    Convention convention) const {
    const double centre = logitOf(pctInTol);
    const double from = std::max(centre - nearby, places_.front().logit);
    const double to = std::min(centre + nearby, places_.back().logit);
    WorstCase found = between(from, to, testLimits, convention);
    if (!std::isfinite(found.falseAccept)) return std::nullopt;
    return found;
}

Result<WorstCase> worstCase(const DecisionBasis& basis, Convention convention, PctRange range) {
    if (!(range.from > 0 && range.from < range.to && range.to < 100))
        return refusedFigure(worstTitle, "The range must lie between 0 and 100 % and begin below its end.");
    const auto found = WorstCaseSearch(basis, range).worst(basis.testLimits(), convention);
    if (!found)
        return noFigureOf(worstTitle, "No % in-tolerance of the range has a fit and accepts anything.");
    return *found;
}

Result<double> leastGuardband(const DecisionBasis& basis, Convention convention, double target,
                              PctRange range) {
    if (!(target > 0 && target < 1))
        return refusedFigure(worstTitle, "The target must be above 0 and below 100 %.");
    if (!(range.from > 0 && range.from < range.to && range.to < 100))
        return refusedFigure(worstTitle, "The range must lie between 0 and 100 % and begin below its end.");
    const WorstCaseSearch search(basis, range);
    const auto none = [&] {
        return noFigureOf(worstTitle,
                          "No guardband keeps it below " + shownPercent({target, 1 - target}) + ".");
    };
    double width = 0;
    std::optional<WorstCase> worst = search.worst(basis.narrowed(0, 0), convention);
    if (!worst) return noFigureOf(worstTitle, "No % in-tolerance of the range has a fit.");
    // The guard band that the worst population needs; another one is the worst then, a little above the
    // target. Each pass comes nearer from below, as the widths of Newton's method do.
    bool scannedAll = true;
    for (int pass = 0; pass < mostPasses; ++pass) {
        if (!(worst->falseAccept > target * (1 + 1e-13))) {
            if (scannedAll) return width;
            worst = search.worst(basis.narrowed(width, width), convention);
            scannedAll = true;
            if (!worst) return none();
            continue;
        }
        const double pct = worst->pctInTol;
        const auto excess = [&](double w) {
            const auto risks = search.at(pct, basis.narrowed(w, w));
            return risks ? std::log(risks->falseAccept(convention) / target) : lowest;
        };
        const auto next = widthWhere(basis, excess, width, false);
        if (!next) return none();
        if (!(*next > width)) return width;
        width = *next;
        worst = search.worstNear(pct, basis.narrowed(width, width), convention);
        scannedAll = false;
        if (!worst) return none();
    }
    return width;
}

} // namespace metrisk
