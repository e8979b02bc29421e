// metrisk-cli decide: the verdict of a decision rule on readings.
#include "base/NumberFormat.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/DecisionRun.h"
#include "cli/Figures.h"
#include "cli/Input.h"
#include "cli/Readers.h"
#include "risk/decision/OffCentre.h"
#include "risk/decision/Refused.h"
#include "risk/decision/ShownFigures.h"

#include <memory>
#include <sstream>

namespace metrisk::cli {

namespace {

constexpr std::size_t largestReadings = std::size_t{1} << 28; // bytes
constexpr const char* uniformText =
    "The subject is taken to be 100 % in tolerance; a reading cannot change that.";
constexpr const char* passedOutsideText = "The reading lies outside the limits; it passes by the population.";

struct Options : DecisionOptions {
    std::optional<double> reading{};
    std::string readings{};
    DecisionRule rule{};
    bool prior = false;
    std::optional<double> mean{};
    std::optional<double> sigma{};
};

/// What all readings of a run are judged by.
struct Judge {
    const DecisionBasis& basis;
    std::optional<DecisionPrior> prior{};
    std::optional<Interval> levelLimits{}; // of a conformance rule; none where nothing can pass

    const SubjectBias* population() const { return prior ? &prior->subject : nullptr; }
    const DecisionPrior* named() const { return prior ? &*prior : nullptr; }
};

std::string priorName(const DecisionRun& run, const Options& options, const SubjectBias& prior) {
    if (!options.mean)
        return "population of " + GeneralText(run.basis()->subject.pctInTol, {}, 6) + " % in tolerance";
    return "normal process about " + run.texts().reading(prior.mode) + " with a sigma of " +
           run.texts().width(prior.sigma);
}

std::optional<Judge> judgeOf(DecisionRun& run, const Options& options) {
    Judge judge{*run.basis()};
    if (const auto refusal = refusedRule(options.rule)) {
        run.refuse(*refusal);
        return std::nullopt;
    }
    if (options.prior) {
        const auto prior =
            options.mean ? offCentreProcess(judge.basis, {.mean = *options.mean, .sigma = options.sigma})
                         : judge.basis.fit;
        if (!prior) {
            run.refuse(prior.refusal());
            return std::nullopt;
        }
        judge.prior = DecisionPrior{*prior, priorName(run, options, *prior)};
        if (prior->distribution == Distribution::Uniform) run.note(uniformText);
    }
    if (options.rule.kind == RuleKind::Conformance) {
        const auto limits = conformanceLimits(judge.basis, options.rule.value, judge.population());
        if (limits)
            judge.levelLimits = *limits;
        else
            run.note(limits.refusal().text);
    } else if (const auto limits = limitsOf(options.rule, judge.basis); !limits) {
        run.refuse(limits.refusal());
        return std::nullopt;
    } else if (limits->nothingPasses()) {
        run.note("No reading can pass: the acceptance limits have crossed.");
    }
    return judge;
}

std::optional<Interval> acceptanceOf(const Judge& judge, const Decision& decision) {
    return decision.limits ? std::optional(decision.limits->acceptance) : judge.levelLimits;
}

Json asJson(const DecisionRun& run, const Options& options, const Judge& judge, double reading,
            const Decision& decision, const std::string& sentence) {
    const DecisionBasis& basis = judge.basis;
    Json object = run.result();
    object["Reading"] = reading;
    object["Rule"] = textOf(options.rule);
    object["Outcomes"] = options.rule.outcomeCount();
    object["Prior"] = judge.prior.has_value();
    putUncertainty(object, basis);
    object["WithProcessErrors"] = basis.withProcess;
    object["ConformanceProbability"] = decision.conformance.conforming;
    object["NonconformanceProbability"] = decision.conformance.nonconforming;
    object["GuardBand"] = decision.limits ? Json(decision.limits->width) : Json();
    const auto acceptance = acceptanceOf(judge, decision);
    object["AcceptLower"] = acceptance ? limitJson(basis, acceptance->lower) : Json();
    object["AcceptUpper"] = acceptance ? limitJson(basis, acceptance->upper) : Json();
    if (decision.limits && decision.limits->rejection) {
        object["RejectLower"] = limitJson(basis, decision.limits->rejection->lower);
        object["RejectUpper"] = limitJson(basis, decision.limits->rejection->upper);
    }
    object["Verdict"] = textOf(decision.verdict);
    object["SpecificFalseAccept"] = decision.specificFalseAccept();
    object["SpecificFalseReject"] = decision.specificFalseReject();
    object["Sentence"] = sentence;
    return object;
}

std::string asTable(const DecisionRun& run, const Options& options, const Judge& judge, double reading,
                    const Decision& decision, const std::string& sentence) {
    const DecisionTexts texts = run.texts();
    const Conformance& c = decision.conformance;
    const auto acceptance = acceptanceOf(judge, decision);
    std::string table = tableRow("Reading", forResults(texts.reading(reading)));
    table += tableRow("Rule", textOf(options.rule));
    table += tableRow("Verdict", std::string(textOf(decision.verdict)));
    table += tableRow("Probability of conformance", shownConformance(decision, options.rule, judge.named()));
    if (c.conforming > 0.9999 && c.nonconforming > 0)
        table += tableRow("Of nonconformance", shownPercent({c.nonconforming, c.conforming}));
    if (acceptance && acceptance->lower <= acceptance->upper)
        table += tableRow("Acceptance limits", run.limitsCell(*acceptance));
    if (decision.limits && decision.limits->rejection)
        table += tableRow("Fails unless", run.limitsCell(*decision.limits->rejection));
    table += tableRow(
        "Standard uncertainty",
        forResults(texts.width(judge.basis.sigma)) +
            (judge.basis.withProcess ? ", with process errors" : ", of the measuring parameter alone"));
    return table + "  " + forResults(sentence) + "\n\n";
}

/// One of many readings.
std::string asLine(const DecisionRun& run, const Options& options, const Judge& judge, double reading,
                   const Decision& decision) {
    const auto column = [](std::string text, std::size_t width) {
        const std::size_t size = countCharacters(text);
        return text + std::string(size < width ? width - size : 1, ' ');
    };
    return "  " + column(forResults(run.texts().reading(reading)), 24) +
           column(std::string(textOf(decision.verdict)), 18) +
           shownConformance(decision, options.rule, judge.named()) + "\n";
}

/// The output of one reading.
std::string judged(DecisionRun& run, const Options& options, const Judge& judge, double reading) {
    const auto decision = decide(judge.basis, reading, options.rule, judge.population());
    if (!decision) {
        run.refuse(decision.refusal());
        return options.json ? jsonLine(run.result()) : "";
    }
    const Interval tolerance = judge.basis.tolerance();
    const bool outside = decision->deviation < tolerance.lower || decision->deviation > tolerance.upper;
    if (judge.prior && outside && options.rule.kind == RuleKind::Conformance && passes(decision->verdict) &&
        options.readings.empty())
        run.note(passedOutsideText);
    if (!options.json && !options.readings.empty()) return asLine(run, options, judge, reading, *decision);
    const std::string sentence = decisionSentence(judge.basis, reading, options.rule, *decision,
                                                  acceptanceOf(judge, *decision), judge.named(), run.texts());
    return options.json ? jsonLine(asJson(run, options, judge, reading, *decision, sentence))
                        : asTable(run, options, judge, reading, *decision, sentence);
}

/// One a line; lines of blanks alone are passed over.
std::string judgedLines(DecisionRun& run, const Options& options, const Judge& judge) {
    std::istringstream lines(readInput(options.readings, largestReadings));
    std::string results;
    std::size_t number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        const auto from = line.find_first_not_of(" \t\r");
        if (from == line.npos) continue;
        const std::string text = line.substr(from, line.find_last_not_of(" \t\r") - from + 1);
        run.nextLine();
        if (const auto reading = numberOf(text)) {
            results += judged(run, options, judge, *reading);
        } else {
            run.refuse(refusedFigure("Reading", "line " + std::to_string(number) + ": " + isNumber(text)));
            if (options.json) results += jsonLine(run.result());
        }
    }
    return results;
}

int decideAll(const Options& options) {
    DecisionRun run(options);
    std::string results;
    const std::optional<Judge> judge = run.basis() ? judgeOf(run, options) : std::nullopt;
    if (!judge)
        results = options.json ? jsonLine(run.result()) : "";
    else if (options.reading)
        results = judged(run, options, *judge, *options.reading);
    else
        results = judgedLines(run, options, *judge);
    if (!options.json && !results.empty()) results = forResults(options.file) + "\n" + results;
    return finish({.results = results, .diagnostics = run.diagnostics(), .status = run.status()});
}

/// What is wrong with options that are each right.
std::string faultOf(const Options& options) {
    if (options.sigma && !options.mean) return "--sigma goes with --mean";
    if (options.mean && !options.prior) return "--mean goes with --prior";
    if (options.rule.reject && options.rule.kind != RuleKind::Guard)
        return "--reject goes with a rule of guard=";
    if (options.file == standardStream && options.readings == standardStream)
        return "only one of the file and the readings can come from the standard input";
    return {};
}

} // namespace

void addDecide(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("decide", "Judge readings by a decision rule, with the probability of conformance");
    options->addTo(command);
    const Argument one = command.number("--reading", options->reading, "Measured value, in nominal units");
    const Argument many = command.text("--readings", options->readings, "Readings, one a line").isPath();
    one.shownAs("VALUE");
    many.shownAs("FILE");
    command.alternatives({one, many}, true);
    command
        .read(
            "--rule",
            [options](const std::string& text) -> std::string {
                const auto rule = decisionRuleOf(text);
                if (!rule)
                    return "\"" + text +
                           "\" is none of simple, umax=X, ratio=N, guard=R, w=U, iso14253, rss, m6, "
                           "analysis, pc=L";
                options->rule.kind = rule->kind;
                options->rule.value = rule->value;
                return "";
            },
            "simple (otherwise), umax=X, ratio=N, guard=R (w=U is guard=1), iso14253, rss, m6, analysis, "
            "pc=L (0.95 or 95%)")
        .shownAs("RULE");
    command
        .read(
            "--outcomes",
            [options](const std::string& text) -> std::string {
                if (text != "2" && text != "3" && text != "4") return "must be 2, 3 or 4";
                options->rule.outcomes = text[0] - '0';
                return "";
            },
            "2 pass or fail, 3 with undecided, 4 with conditional verdicts; otherwise that of the rule")
        .shownAs("COUNT");
    command
        .number("--reject", options->rule.reject, "Of guard=R: multiple of U beyond the limits for rejection")
        .shownAs("R");
    command.flag("--prior", options->prior, "With the population of the % in-tolerance as prior");
    command.number("--mean", options->mean, "With --prior: mean of a process that is off centre")
        .shownAs("VALUE");
    command.number("--sigma", options->sigma, "With --mean: sigma of that process").shownAs("VALUE");
    command.examples({"decide multimeter-dc-volts.mrk --reading 10.00035 --rule w=U",
                      "decide multimeter-dc-volts.mrk --reading 10.00035 --rule pc=95% --prior --json",
                      "decide torque-wrench-50nm.mrk --readings readings.txt --rule iso14253"});
    command.then([options, &chosen] {
        if (const std::string fault = faultOf(*options); !fault.empty()) throw WrongUsage(fault);
        chosen = [options] { return decideAll(*options); };
    });
}

} // namespace metrisk::cli
