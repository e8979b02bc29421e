// metrisk-cli counts: what counts of passed and tested items say of a % in-tolerance.
#include "base/DisplayRule.h"
#include "base/NumberFormat.h"
#include "cli/Commands.h"
#include "cli/DecisionRun.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "risk/decision/Counts.h"
#include "risk/decision/ShownFigures.h"

#include <cstdint>
#include <memory>

namespace metrisk::cli {

namespace {

constexpr const char* observedText = "Counts of passes are observed: false accepts and rejects are in them.";
constexpr const char* noFitText = "no figure: no fit at that %";
constexpr const char* rejectedText = "The counts reject the assumed % in-tolerance.";

struct Options : DecisionOptions {
    Counts counts{};
    ConfidenceChoice confidence{};
    std::optional<double> assumed{}; // percent
};

std::string pctCell(double pct) {
    return GeneralText(pct, {}, 8) + " %";
}

void putPct(const Options& options, const CountedPct& pct, Json& object, std::string& table) {
    object["Passed"] = static_cast<std::int64_t>(options.counts.passed);
    object["Tested"] = static_cast<std::int64_t>(options.counts.tested);
    object["ConfidencePct"] = options.confidence.pct;
    object["LowerPct"] = pct.lower;
    object["UpperPct"] = pct.upper;
    object["PctInTol"] = pct.estimate;
    table += tableRow("% in-tolerance", pct.estimate ? pctCell(*pct.estimate) : "no estimate");
    const std::string level = pctCell(options.confidence.pct) + (options.confidence.oneSided ? " each" : "");
    table +=
        tableRow("Confidence limits", pctCell(pct.lower) + " to " + pctCell(pct.upper) + " (" + level + ")");
    if (!pct.median) return;
    object["MedianPct"] = *pct.median;
    table += tableRow("With half the confidence", pctCell(*pct.median));
}

void putRisksAt(const char* where, const char* label, const std::optional<GuardedRisks>& risks,
                const char* missing, Json& object, std::string& table) {
    const auto key = [&](const char* name) { return std::string(name) + where; };
    object[key("FalseAcceptConsumer")] = risks ? Json(risks->consumer) : Json();
    object[key("FalseAcceptProducer")] = risks ? Json(risks->producer) : Json();
    object[key("FalseReject")] = risks ? Json(risks->falseReject) : Json();
    const auto cell = [](double risk) { return riskCell(risk, baselinePicture); };
    table += tableRow(label, risks ? "accept " + cell(risks->consumer) + " conditional, " +
                                         cell(risks->producer) + " joint; reject " + cell(risks->falseReject)
                                   : missing);
}

void putTest(const CountsTest& test, Json& object, std::string& table) {
    object["TailLow"] = test.tailLow;
    object["TailHigh"] = test.tailHigh;
    object["TwoSidedP"] = test.twoSidedP;
    object["Rejection"] = test.rejection;
    table += tableRow("Rejection of the assumed %",
                      test.rejection > 0 ? shownPercent({test.rejection, test.twoSidedP}, 0.95) : "0 %");
}

void putRisks(const DecisionBasis& basis, const CountedPct& pct, Json& object, std::string& table) {
    const CountedRisks risks = countedRisks(basis, pct);
    putRisksAt("AtLower", "At the lower limit", risks.atLower, noFitText, object, table);
    putRisksAt("AtEstimate", "At the estimate", risks.atEstimate, pct.estimate ? noFitText : "no estimate",
               object, table);
    putRisksAt("AtUpper", "At the upper limit", risks.atUpper, noFitText, object, table);
    object["WorstProducerWithin"] = risks.worstProducer;
    if (risks.worstProducer)
        table += tableRow("Worst joint one between", riskCell(*risks.worstProducer, baselinePicture));
    const auto truePct = pct.estimate ? truePctOf(basis, *pct.estimate) : std::nullopt;
    object["TruePct"] = truePct;
    if (truePct) table += tableRow("True % if that passes", pctCell(*truePct));
}

void putAll(DecisionRun& run, const Options& options, Json& object, std::string& table) {
    const auto pct = countedPct(options.counts, options.confidence);
    if (!pct) return run.refuse(pct.refusal());
    putPct(options, *pct, object, table);
    run.note(observedText);
    if (options.assumed) {
        const auto test = testCounts(options.counts, *options.assumed);
        if (!test) return run.refuse(test.refusal());
        putTest(*test, object, table);
        if (test->rejected()) run.note(rejectedText);
    }
    if (run.basis()) putRisks(*run.basis(), *pct, object, table);
}

int count(const Options& options) {
    DecisionRun run(options);
    Json figures;
    std::string table;
    if (run.status() == allDone) putAll(run, options, figures, table);
    Json object = run.result();
    object = joined(std::move(object), figures);
    if (!table.empty())
        table = forResults(options.file.empty() ? "counts" : options.file) + "\n" + table + "\n";
    return run.finish(object, table);
}

} // namespace

void addCounts(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("counts", "Tell what counts of passed and tested items say of a % in-tolerance");
    command
        .read(
            "COUNTS",
            [options](const std::string& text) -> std::string {
                const auto counts = countsOf(text);
                if (counts) options->counts = *counts;
                return counts ? "" : "\"" + text + "\" is no counts such as 19/20.";
            },
            "Passed and tested items, as in 19/20")
        .shownAs(" ")
        .required();
    options->addTo(command, false);
    command.percent("--assumed", options->assumed, "A % in-tolerance to test by the counts")
        .shownAs("PERCENT");
    command.percent("--confidence", options->confidence.pct, "Confidence of the limits, 95 otherwise")
        .shownAs("PERCENT");
    command.flag("--one-sided", options->confidence.oneSided, "Each limit at that confidence of its own");
    command.examples({"counts 19/20", "counts 59/59 --one-sided", "counts 15/20 --assumed 95",
                      "counts 19/20 torque-wrench-50nm.mrk --json"});
    command.then([options, &chosen] { chosen = [options] { return count(*options); }; });
}

} // namespace metrisk::cli
