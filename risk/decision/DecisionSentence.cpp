#include "risk/decision/DecisionSentence.h"

#include "base/NumberFormat.h"
#include "base/Picture.h"
#include "risk/decision/Coverage.h"
#include "risk/decision/ShownFigures.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr int mostDecimals = 12;

std::string number(double value, const DecisionTexts& texts, int significant = 6) {
    return GeneralText(value, texts.regional, significant);
}

std::string outcomesText(int outcomes) {
    return outcomes == 2 ? "two outcomes" : outcomes == 3 ? "three outcomes" : "four outcomes";
}

std::string multipleOfU(double multiple, const DecisionTexts& texts) {
    return multiple == 1 ? "U" : number(multiple, texts) + " U";
}

} // namespace

std::string limitsText(const DecisionBasis& basis, const Interval& deviations, const DecisionTexts& texts) {
    const double mode = basis.subject.mode;
    const std::string unit = texts.unit.empty() ? "" : " " + texts.unit;
    const auto end = [&](double deviation, bool upper) {
        return texts.limit(mode + deviation, upper) + unit;
    };
    if (!basis.hasLower()) return "at most " + end(deviations.upper, true);
    if (!basis.hasUpper()) return "at least " + end(deviations.lower, false);
    return end(deviations.lower, false) + " to " + end(deviations.upper, true);
}

int decimalsOfWidth(double width) {
    if (!(width > 0)) return 0;
    return std::clamp(1 - static_cast<int>(std::floor(std::log10(width))), 0, mostDecimals);
}

int decimalsOfLimits(int shownDecimals, double expanded) {
    return std::clamp(std::max(shownDecimals, decimalsOfWidth(expanded)), 0, mostDecimals);
}

double inwards(double limit, int decimals, bool upper) {
    const double scale = std::pow(10, decimals);
    const double scaled = limit * scale, nearest = std::round(scaled);
    if (std::fabs(scaled - nearest) <= 1e-9 + 4e-16 * std::fabs(scaled)) return nearest / scale;
    return (upper ? std::floor(scaled) : std::ceil(scaled)) / scale;
}

std::string ruleSentence(const DecisionRule& rule, const DecisionBasis& basis, const DecisionTexts& texts) {
    const std::string outcomes = outcomesText(rule.outcomeCount());
    const auto guard = [&](const std::string& what, double width, const std::string& source) {
        return "guard band w = " + what + " = " + texts.width(width) + " (" + source + ", " + outcomes + ")";
    };
    switch (rule.kind) {
    case RuleKind::Simple: return "simple acceptance (JCGM 106 8.2, " + outcomes + ")";
    case RuleKind::LargestU:
        return "simple acceptance with u at most " + texts.width(rule.value) + " (JCGM 106 8.2, " + outcomes +
               ")";
    case RuleKind::LeastRatio:
        return "simple acceptance with a ratio of tolerance to U of at least " + number(rule.value, texts) +
               " : 1 (ASME B89.7.3.1, " + outcomes + ")";
    case RuleKind::Guard:
        return guard(multipleOfU(rule.value, texts), rule.value * basis.expanded(), "ILAC-G8");
    case RuleKind::Iso14253: {
        const double factor = upperQuantile(0.05, basis.degFreedom);
        return guard(number(factor, texts, 4) + " u", factor * basis.sigma, "ISO 14253-1:2017");
    }
    case RuleKind::Rss: return guard("d - sqrt(d^2 - U^2)", rssWidth(basis), "RSS");
    case RuleKind::ManagedRisk:
        return guard("U (1.04 - exp(0.38 ln(d/U) - 0.54))", managedWidth(basis), "M6, Dobbert 2008");
    case RuleKind::Analysis: return "test limits of the analysis (" + outcomes + ")";
    case RuleKind::Conformance: break;
    }
    return "probability of conformance at least " + number(100 * rule.value, texts) + " % (JCGM 106, " +
           outcomes + ")";
}

std::string shownConformance(const Decision& decision, const DecisionRule& rule, const DecisionPrior* prior,
                             const Regional& regional) {
    if (prior && prior->subject.distribution == Distribution::Uniform) return "100 %";
    const bool byLevel = rule.kind == RuleKind::Conformance;
    return shownPercent(decision.conformance, byLevel ? std::optional(rule.value) : std::nullopt, regional);
}

std::string decisionSentence(const DecisionBasis& basis, double reading, const DecisionRule& rule,
                             const Decision& decision, const std::optional<Interval>& acceptance,
                             const DecisionPrior* prior, const DecisionTexts& texts) {
    const double content = coverageContent(basis.coverage, basis.degFreedom);
    const std::string limits = basis.twoSided() ? "limits " : "limit ";
    std::string text =
        "Reading " + texts.reading(reading) + "; " + limits + limitsText(basis, basis.tolerance(), texts) +
        "; U = " + texts.width(basis.expanded()) + " (k = " + number(basis.coverage, texts, 3) + ", " +
        shownPercent({content, 1 - content}, {}, texts.regional);
    if (basis.degFreedom > 0) text += ", " + number(basis.degFreedom, texts, 4) + " degrees of freedom";
    text += "). Decision rule: " + ruleSentence(rule, basis, texts) + "; ";
    const bool anyPasses = acceptance && acceptance->lower <= acceptance->upper;
    text +=
        anyPasses ? "acceptance " + limits + limitsText(basis, *acceptance, texts) : "no reading can pass";
    text += ". Verdict: " + std::string(textOf(decision.verdict)) + ". Probability of conformance " +
            shownConformance(decision, rule, prior, texts.regional);
    if (prior) text += " with prior: " + prior->name;
    const Conformance& c = decision.conformance;
    const bool certain = prior && prior->subject.distribution == Distribution::Uniform;
    if (passes(decision.verdict))
        text += "; risk that a nonconforming item is passed " +
                (certain ? "0 %" : shownPercent({c.nonconforming, c.conforming}, {}, texts.regional));
    else if (fails(decision.verdict))
        text += "; risk that a conforming item is failed " +
                shownConformance(decision, rule, prior, texts.regional);
    return text + ".";
}

} // namespace metrisk
