#include "risk/decision/Counts.h"

#include "numerics/BinomialLimits.h"
#include "numerics/BracketedRoot.h"
#include "numerics/mathlib/Binomial.h"
#include "risk/decision/Coverage.h"
#include "risk/decision/Refused.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace metrisk {

namespace {

constexpr const char* countsTitle = "Counts";
constexpr double mostTested = 1e9;
constexpr double entryConfidence = 0.95;
constexpr double farthest = 20;     // logits
constexpr double nearTheEnd = 0.01; // of what is left of 0 or 100 %: how near a search goes to them

std::string_view trimmed(std::string_view text) {
    const auto from = text.find_first_not_of(' ');
    if (from == text.npos) return {};
    return text.substr(from, text.find_last_not_of(' ') - from + 1);
}

std::optional<double> wholeNumber(std::string_view text) {
    std::int64_t value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = read.ec == std::errc{} && read.ptr == text.data() + text.size();
    return whole ? std::optional(static_cast<double>(value)) : std::nullopt;
}

std::string pctText(double pct) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, pct, std::chars_format::fixed, 2).ptr;
    return std::string(text, end) + " %";
}

std::string textOf(const Counts& counts) {
    const auto whole = [](double n) { return std::to_string(static_cast<std::int64_t>(n)); };
    return whole(counts.passed) + " of " + whole(counts.tested);
}

} // namespace

std::optional<Counts> countsOf(std::string_view text) {
    const auto stroke = text.find('/');
    if (stroke == text.npos) return std::nullopt;
    const auto passed = wholeNumber(trimmed(text.substr(0, stroke)));
    const auto tested = wholeNumber(trimmed(text.substr(stroke + 1)));
    return passed && tested ? std::optional(Counts{*passed, *tested}) : std::nullopt;
}

std::optional<Refusal> refusedCounts(const Counts& counts) {
    const auto [passed, tested] = counts;
    const bool whole = passed == std::floor(passed) && tested == std::floor(tested);
    if (whole && tested >= 1 && tested <= mostTested && passed >= 0 && passed <= tested) return std::nullopt;
    return refusedFigure(countsTitle,
                         "Must be two whole numbers, the passed ones of the tested ones: 0 or more of 1 "
                         "to 1,000,000,000.");
}

Result<CountedPct> countedPct(const Counts& counts, const ConfidenceChoice& confidence) {
    if (const auto refusal = refusedCounts(counts)) return *refusal;
    if (!(confidence.pct > 0 && confidence.pct < 100))
        return refusedFigure(countsTitle, "The confidence must be above 0 % and below 100 %.");
    const double tail = (100 - confidence.pct) / (confidence.oneSided ? 100 : 200);
    const auto [passed, tested] = counts;
    CountedPct pct{.lower = 100 * leastShare(passed, tested, tail).p,
                   .upper = 100 * greatestShare(passed, tested, tail).p,
                   .estimate = {},
                   .median = {}};
    if (!counts.allPassed() && !counts.nonePassed()) pct.estimate = 100 * passed / tested;
    if (counts.allPassed()) pct.median = 100 * leastShare(passed, tested, 0.5).p;
    return pct;
}

Result<double> countsLowerEntry(const Counts& counts) {
    if (const auto refusal = refusedCounts(counts)) return *refusal;
    if (counts.nonePassed())
        return refusedFigure(countsTitle, "None passed: there is no % in-tolerance to enter.");
    return 100 * leastShare(counts.passed, counts.tested, 1 - entryConfidence).p;
}

Result<double> countsEntry(const Counts& counts) {
    const auto lower = countsLowerEntry(counts);
    if (!lower) return lower.refusal();
    if (counts.allPassed()) {
        const double median = 100 * leastShare(counts.passed, counts.tested, 0.5).p;
        return refusedFigure(countsTitle,
                             textOf(counts) + " shows only that it is at least " + pctText(*lower) +
                                 ", with 95 % confidence; with 50 % at least " + pctText(median) + ".");
    }
    return 100 * counts.passed / counts.tested;
}

CountedRisks countedRisks(const DecisionBasis& basis, const CountedPct& pct) {
    const Interval limits = basis.testLimits();
    const bool normal = basis.twoSided() ? basis.subject.upperOffset == basis.subject.lowerOffset
                                         : !basis.subject.physicalLimitRequired;
    const auto at = [&](double percent) -> std::optional<GuardedRisks> {
        if (percent == 100) {
            if (!normal) return std::nullopt;
            const double rejected =
                upperTail(-limits.lower / basis.sigma, 0) + upperTail(limits.upper / basis.sigma, 0);
            return GuardedRisks{0, 0, rejected, 1 - rejected, 1};
        }
        SubjectEntry entry = basis.subject;
        entry.pctInTol = percent;
        const auto fit = fittedBias(entry);
        return fit ? guardedRisks(*fit, basis.sigma, limits) : std::nullopt;
    };
    CountedRisks risks;
    risks.atLower = at(pct.lower);
    if (pct.estimate) risks.atEstimate = at(*pct.estimate);
    risks.atUpper = at(pct.upper);
    const double from = std::max(pct.lower, nearTheEnd * std::min(pct.upper, 1.0));
    const double to = std::min(pct.upper, 100 - nearTheEnd * std::min(100 - pct.lower, 1.0));
    if (!(from < to)) return risks;
    const auto worst = WorstCaseSearch(basis, {from, to}).worst(limits, Convention::Producer);
    if (worst) risks.worstProducer = worst->falseAccept;
    return risks;
}

std::optional<double> truePctOf(const DecisionBasis& basis, double observedPct) {
    const auto pctAt = [](double logit) { return 100 / (1 + std::exp(-logit)); };
    const auto excess = [&](double logit) {
        SubjectEntry entry = basis.subject;
        entry.pctInTol = pctAt(logit);
        const auto fit = fittedBias(entry);
        const auto risks = fit ? guardedRisks(*fit, basis.sigma, basis.testLimits()) : std::nullopt;
        return risks ? risks->accepted - observedPct / 100 : std::nan("");
    };
    // More of a better population is accepted: outward from the percentage itself.
    const double start = std::log(observedPct / (100 - observedPct));
    CurvePoint inner{start, excess(start)};
    const double towards = inner.y > 0 ? -1 : 1;
    for (double step = 0.1; std::fabs(inner.x - start) < farthest; step *= 2) {
        const double x = inner.x + towards * step;
        const CurvePoint outer{x, excess(x)};
        if (std::isnan(inner.y) || std::isnan(outer.y)) return std::nullopt;
        if ((outer.y > 0) != (inner.y > 0)) return pctAt(bracketedRoot(excess, inner, outer, 1e-13));
        inner = outer;
    }
    return std::nullopt;
}

Result<CountsTest> testCounts(const Counts& counts, double assumedPct) {
    if (const auto refusal = refusedCounts(counts)) return *refusal;
    if (!(assumedPct >= 0 && assumedPct <= 100))
        return refusedFigure(countsTitle, "The assumed % in-tolerance must lie from 0 % to 100 %.");
    const Chance chance{assumedPct / 100, (100 - assumedPct) / 100};
    const double low = binomialLowerTail(counts.passed, counts.tested, chance);
    const double high = binomialUpperTail(counts.passed, counts.tested, chance);
    const double p = std::min(1.0, 2 * std::min(low, high));
    return CountsTest{low, high, p, 1 - p};
}

} // namespace metrisk
