#include "cli/RuleOptions.h"

namespace metrisk::cli {

void RuleOptions::addTo(const Arguments& command) {
    command
        .read(
            "--rule",
            [this](const std::string& text) -> std::string {
                const auto read = decisionRuleOf(text);
                if (!read)
                    return "\"" + text +
                           "\" is none of simple, umax=X, ratio=N, guard=R, w=U, iso14253, rss, m6, "
                           "analysis, pc=L";
                rule.kind = read->kind;
                rule.value = read->value;
                return "";
            },
            "simple (otherwise), umax=X, ratio=N, guard=R (w=U is guard=1), iso14253, rss, m6, analysis, "
            "pc=L (0.95 or 95%)")
        .shownAs("RULE");
    command
        .read(
            "--outcomes",
            [this](const std::string& text) -> std::string {
                if (text != "2" && text != "3" && text != "4") return "must be 2, 3 or 4";
                rule.outcomes = text[0] - '0';
                return "";
            },
            "2 pass or fail, 3 with undecided, 4 with conditional verdicts; otherwise that of the rule")
        .shownAs("COUNT");
    command.number("--reject", rule.reject, "Of guard=R: multiple of U beyond the limits for rejection")
        .shownAs("R");
    command.flag("--prior", prior, "With the population of the % in-tolerance as prior");
}

std::string RuleOptions::fault() const {
    return rule.reject && rule.kind != RuleKind::Guard ? "--reject goes with a rule of guard=" : "";
}

} // namespace metrisk::cli
