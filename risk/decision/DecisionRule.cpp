#include "risk/decision/DecisionRule.h"

#include "risk/decision/Coverage.h"
#include "risk/decision/Refused.h"
#include "risk/decision/RuleText.h"

#include "base/ExactText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace metrisk {

namespace {

constexpr const char* ruleTitle = "Decision Rule";
constexpr double leftAtTheLimit = 0.05; // ISO 14253-1: the conformance probability there is 95 %

struct Name {
    RuleKind kind;
    std::string_view text;
    bool hasValue;
};
constexpr std::array<Name, 9> names{{{RuleKind::Simple, "simple", false},
                                     {RuleKind::LargestU, "umax", true},
                                     {RuleKind::LeastRatio, "ratio", true},
                                     {RuleKind::Guard, "guard", true},
                                     {RuleKind::Iso14253, "iso14253", false},
                                     {RuleKind::Rss, "rss", false},
                                     {RuleKind::ManagedRisk, "m6", false},
                                     {RuleKind::Analysis, "analysis", false},
                                     {RuleKind::Conformance, "pc", true}}};

/// "4" and "4:1".
std::optional<double> ratioIn(std::string_view text) {
    const auto colon = text.find(':');
    const auto over = numberIn(text.substr(0, colon));
    if (!over || colon == text.npos) return over;
    const auto under = numberIn(text.substr(colon + 1));
    return under && *under != 0 ? std::optional(*over / *under) : std::nullopt;
}

std::optional<double> levelIn(std::string_view text) {
    if (const auto pct = percentIn(text)) return *pct / 100;
    return numberIn(text);
}

/// The multiple of "0.83U" and of "U".
std::optional<double> multipleIn(std::string_view text) {
    if (!text.ends_with('U')) return std::nullopt;
    text.remove_suffix(1);
    return text.empty() ? 1 : numberIn(text);
}

std::optional<double> valueIn(RuleKind kind, std::string_view text) {
    if (kind == RuleKind::LeastRatio) return ratioIn(text);
    if (kind == RuleKind::Conformance) return levelIn(text);
    return numberIn(text);
}

Refusal refuse(std::string text) {
    return refusedFigure(ruleTitle, std::move(text));
}

} // namespace

std::optional<DecisionRule> decisionRuleOf(std::string_view text) {
    const auto sign = text.find('=');
    const std::string_view name = text.substr(0, sign);
    const std::string_view rest = sign == text.npos ? std::string_view{} : text.substr(sign + 1);
    if (name == "w" && sign != text.npos) {
        const auto multiple = multipleIn(rest);
        return multiple ? std::optional(DecisionRule{.kind = RuleKind::Guard, .value = *multiple})
                        : std::nullopt;
    }
    for (const Name& each : names) {
        if (each.text != name || each.hasValue != (sign != text.npos)) continue;
        if (!each.hasValue) return DecisionRule{.kind = each.kind};
        const auto value = valueIn(each.kind, rest);
        return value ? std::optional(DecisionRule{.kind = each.kind, .value = *value}) : std::nullopt;
    }
    return std::nullopt;
}

std::string textOf(const DecisionRule& rule) {
    const auto& name = *std::ranges::find(names, rule.kind, &Name::kind);
    std::string text(name.text);
    return name.hasValue ? text + "=" + exactText(rule.value) : text;
}

std::optional<Refusal> refusedRule(const DecisionRule& rule) {
    const int outcomes = rule.outcomeCount();
    const bool middle = outcomes > 2;
    switch (rule.kind) {
    case RuleKind::Guard:
    case RuleKind::Conformance:
        if (outcomes < 2 || outcomes > 4) return refuse("A rule has 2, 3 or 4 outcomes.");
        break;
    case RuleKind::Iso14253:
        if (outcomes != 3) return refuse("This rule has 3 outcomes.");
        break;
    default:
        if (outcomes != 2) return refuse("This rule has 2 outcomes.");
    }
    if (rule.kind == RuleKind::LargestU && !(rule.value > 0))
        return refuse("The largest uncertainty must be greater than zero.");
    if (rule.kind == RuleKind::LeastRatio && !(rule.value > 0))
        return refuse("The least ratio must be greater than zero.");
    if (rule.kind == RuleKind::Guard && middle) {
        if (rule.value < 0) return refuse("Relaxed acceptance has no middle zone: it has 2 outcomes.");
        if (rule.reject && *rule.reject < -rule.value)
            return refuse("Items would be rejected within the acceptance limits.");
    }
    if (rule.kind == RuleKind::Conformance && !(rule.value > (middle ? 0.5 : 0) && rule.value < 1))
        return refuse(middle ? "The level must be above 50 % and below 100 %."
                             : "The level must be above 0 and below 100 %.");
    return std::nullopt;
}

double rssWidth(const DecisionBasis& basis) {
    const double d = basis.halfWidth(), expanded = basis.expanded();
    return expanded / (d + std::sqrt((d - expanded) * (d + expanded))) *
           expanded; // no difference of near ones
}

double managedWidth(const DecisionBasis& basis) {
    return basis.expanded() * std::max(0.0, 1.04 - std::exp(0.38 * std::log(basis.ratio()) - 0.54));
}

Result<RuleLimits> limitsOf(const DecisionRule& rule, const DecisionBasis& basis) {
    if (const auto refusal = refusedRule(rule)) return *refusal;
    double width = 0;
    switch (rule.kind) {
    case RuleKind::Guard: width = rule.value * basis.expanded(); break;
    case RuleKind::Iso14253: width = upperQuantile(leftAtTheLimit, basis.degFreedom) * basis.sigma; break;
    case RuleKind::ManagedRisk: width = managedWidth(basis); break;
    case RuleKind::Rss:
        if (!(basis.ratio() > 1)) return refuse("The ratio of tolerance to U must be above 1 for this rule.");
        width = rssWidth(basis);
        break;
    case RuleKind::Analysis: return RuleLimits{basis.testLimits(), {}, {}};
    default: break;
    }
    RuleLimits limits{basis.narrowed(width, width), {}, width};
    if (rule.outcomeCount() > 2) {
        const double beyond = rule.reject ? *rule.reject * basis.expanded() : width;
        limits.rejection = basis.narrowed(-beyond, -beyond);
    }
    return limits;
}

} // namespace metrisk
