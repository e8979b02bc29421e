// metrisk-cli decide: the verdict of a decision rule on readings.
#include "base/NumberFormat.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/DecisionRun.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "cli/Readers.h"
#include "cli/ReadingOption.h"
#include "cli/RuleOptions.h"
#include "risk/decision/Judge.h"
#include "risk/decision/OffCentre.h"
#include "risk/decision/Refused.h"
#include "risk/decision/ShownFigures.h"
#include "rows/Reading.h"
#include "unattended/Input.h"

#include <memory>
#include <sstream>

namespace metrisk::cli {

namespace {

constexpr std::size_t largestReadings = std::size_t{1} << 28; // bytes
struct Options : DecisionOptions, RuleOptions, ReadingOption {
    std::string readings{};
    std::optional<double> mean{};
    std::optional<double> sigma{};
};

Result<DecisionPrior> priorOf(const DecisionRun& run, const Options& options) {
    const DecisionBasis& basis = *run.basis();
    if (!options.mean) return populationPrior(basis);
    const auto process = offCentreProcess(basis, {.mean = *options.mean, .sigma = options.sigma});
    if (!process) return process.refusal();
    return DecisionPrior{*process, "normal process about " + run.texts().reading(process->mode) +
                                       " with a sigma of " + run.texts().width(process->sigma)};
}

std::optional<Judge> judgeOf(DecisionRun& run, const Options& options) {
    std::optional<DecisionPrior> prior;
    const auto refusal = refusedRule(options.rule);
    if (options.prior && !refusal) {
        const auto found = priorOf(run, options);
        if (!found) {
            run.refuse(found.refusal());
            return std::nullopt;
        }
        prior = *found;
    }
    const auto judge = Judge::of(*run.basis(), options.rule, std::move(prior), run.texts());
    if (!judge) {
        run.refuse(judge.refusal());
        return std::nullopt;
    }
    for (const std::string& note : judge->notes()) run.note(note);
    return *judge;
}

/// Crossed limits, too: a program may want to see by how much.
std::optional<Interval> acceptanceOf(const Judgement& judgement) {
    const auto& limits = judgement.decision.limits;
    return limits ? std::optional(limits->acceptance) : judgement.acceptance;
}

Json asJson(const DecisionRun& run, const Options& options, const Judge& judge, double reading,
            const Judgement& judgement) {
    const DecisionBasis& basis = judge.basis();
    const Decision& decision = judgement.decision;
    Json object = run.result();
    object["Reading"] = reading;
    object["Rule"] = textOf(options.rule);
    object["Outcomes"] = options.rule.outcomeCount();
    object["Prior"] = judge.hasPrior();
    putUncertainty(object, basis);
    object["WithProcessErrors"] = basis.withProcess;
    object["ConformanceProbability"] = decision.conformance.conforming;
    object["NonconformanceProbability"] = decision.conformance.nonconforming;
    object["GuardBand"] = decision.limits ? Json(decision.limits->width) : Json();
    const auto acceptance = acceptanceOf(judgement);
    object["AcceptLower"] = acceptance ? limitJson(basis, acceptance->lower) : Json();
    object["AcceptUpper"] = acceptance ? limitJson(basis, acceptance->upper) : Json();
    if (decision.limits && decision.limits->rejection) {
        object["RejectLower"] = limitJson(basis, decision.limits->rejection->lower);
        object["RejectUpper"] = limitJson(basis, decision.limits->rejection->upper);
    }
    object["Verdict"] = textOf(decision.verdict);
    object["SpecificFalseAccept"] = decision.specificFalseAccept();
    object["SpecificFalseReject"] = decision.specificFalseReject();
    object["Sentence"] = judgement.sentence;
    return object;
}

std::string asTable(const DecisionRun& run, const Options& options, const Judge& judge, double reading,
                    const Judgement& judgement) {
    const DecisionTexts& texts = judge.texts();
    const Decision& decision = judgement.decision;
    const Conformance& c = decision.conformance;
    std::string table = tableRow("Reading", forResults(texts.reading(reading)));
    table += tableRow("Rule", textOf(options.rule));
    table += tableRow("Verdict", std::string(textOf(decision.verdict)));
    table += tableRow("Probability of conformance", judgement.conformance);
    if (c.conforming > 0.9999 && c.nonconforming > 0)
        table += tableRow("Of nonconformance", shownPercent({c.nonconforming, c.conforming}));
    if (judgement.acceptance) table += tableRow("Acceptance limits", run.limitsCell(*judgement.acceptance));
    if (decision.limits && decision.limits->rejection)
        table += tableRow("Fails unless", run.limitsCell(*decision.limits->rejection));
    table += tableRow(
        "Standard uncertainty",
        forResults(texts.width(judge.basis().sigma)) +
            (judge.basis().withProcess ? ", with process errors" : ", of the measuring parameter alone"));
    return table + "  " + forResults(judgement.sentence) + "\n\n";
}

/// One of many readings.
std::string asLine(const Judge& judge, double reading, const Judgement& judgement) {
    const auto column = [](const std::string& text, std::size_t width) {
        const std::size_t size = countCharacters(text);
        return text + std::string(size < width ? width - size : 1, ' ');
    };
    return "  " + column(forResults(judge.texts().reading(reading)), 24) +
           column(std::string(textOf(judgement.decision.verdict)), 18) + judgement.conformance + "\n";
}

/// The output of one reading.
std::string judged(DecisionRun& run, const Options& options, const Judge& judge, double reading) {
    const auto judgement = judge.judge(reading);
    if (!judgement) {
        run.refuse(judgement.refusal());
        return options.json ? jsonLine(run.result()) : "";
    }
    if (!judgement->note.empty() && options.readings.empty()) run.note(judgement->note);
    if (options.json) return jsonLine(asJson(run, options, judge, reading, *judgement));
    return options.readings.empty() ? asTable(run, options, judge, reading, *judgement)
                                    : asLine(judge, reading, *judgement);
}

/// The same of a reading as it was typed; `where` goes before what is wrong with it.
std::string judgedText(DecisionRun& run, const Options& options, const Judge& judge, const std::string& text,
                       const std::string& where = {}) {
    std::string fault = isNumber(text);
    try {
        if (const auto reading = nominalReading(text, run.record()))
            return judged(run, options, judge, *reading);
    } catch (const RowFault& unit) {
        fault = unit.text;
    }
    run.refuse(refusedFigure("Reading", where + fault));
    return options.json ? jsonLine(run.result()) : "";
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
        results += judgedText(run, options, judge, text, "line " + std::to_string(number) + ": ");
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
        results = judgedText(run, options, *judge, *options.reading);
    else
        results = judgedLines(run, options, *judge);
    if (!options.json && !results.empty()) results = forResults(options.file) + "\n" + results;
    return finish({.results = results, .diagnostics = run.diagnostics(), .status = run.status()});
}

/// What is wrong with options that are each right.
std::string faultOf(const Options& options) {
    if (options.sigma && !options.mean) return "--sigma goes with --mean";
    if (options.mean && !options.prior) return "--mean goes with --prior";
    for (const std::string& fault : {options.fault(), options.readingFault()})
        if (!fault.empty()) return fault;
    if (options.file == standardStream && options.readings == standardStream)
        return "only one of the file and the readings can come from the standard input";
    return {};
}

} // namespace

void addDecide(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("decide", "Judge readings by a decision rule, with the probability of conformance");
    options->DecisionOptions::addTo(command);
    const Argument one =
        options->ReadingOption::addTo(command, "Measured value, in nominal units or with its unit");
    const Argument many = command.text("--readings", options->readings, "Readings, one a line").isPath();
    many.shownAs("FILE");
    command.alternatives({one, many}, true);
    options->RuleOptions::addTo(command);
    command.number("--mean", options->mean, "With --prior: mean of a process that is off centre")
        .shownAs("VALUE");
    command.number("--sigma", options->sigma, "With --mean: sigma of that process").shownAs("VALUE");
    command.examples({"decide multimeter-dc-volts.mrk --reading 10.00035 --rule w=U",
                      "decide multimeter-dc-volts.mrk --reading 10.00035 --rule pc=95% --prior --json",
                      "decide multimeter-dc-volts.mrk --reading '10000.35 mV'",
                      "decide torque-wrench-50nm.mrk --readings readings.txt --rule iso14253"});
    command.then([options, &chosen] {
        if (const std::string fault = faultOf(*options); !fault.empty()) throw WrongUsage(fault);
        chosen = [options] { return decideAll(*options); };
    });
}

} // namespace metrisk::cli
