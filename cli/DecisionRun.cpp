#include "cli/DecisionRun.h"

#include "base/DisplayRule.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "desk/kit/Message.h"
#include "record/ToleranceUnits.h"
#include "risk/decision/RecordDecision.h"

#include <cmath>

namespace metrisk::cli {

namespace {

constexpr const char* noFigureText = "These entries lead to no figure.";
constexpr const char* notComputedTitle = "Not Computed";

Result<DecisionBasis> basisOf(const AnalysisRun& run, const DecisionOptions& options) {
    const auto found = decisionBasis(run.record, run.session.regional, options.coverage);
    if (!found) return found;
    DecisionBasis basis = *found;
    if (options.convention) basis.convention = *options.convention;
    return basis;
}

} // namespace

void DecisionOptions::addTo(const Arguments& command, bool fileRequired) {
    command.text("FILE", file, "Analysis file").shownAs(" ").isPath().required(fileRequired);
    addCoverageOption(command, coverage);
    command
        .read(
            "--convention",
            [this](const std::string& text) -> std::string {
                if (text != "consumer" && text != "producer") return "must be consumer or producer";
                convention = text == "producer" ? Convention::Producer : Convention::Consumer;
                return "";
            },
            "consumer or producer: the false accept risk of this run; otherwise that of the file")
        .shownAs("WHOSE");
    command.flag("--json", json, "Print one JSON object instead of text");
    addSettingsOption(command, settings);
}

DecisionRun::DecisionRun(const DecisionOptions& options)
    : options_(options), workplace_(options.settings), run_(workplace_) {
    if (!options.file.empty() && !run_.open(options.file)) return;
    status_ = lineStatus_ = allDone;
    if (options.file.empty()) return;
    const auto basis = basisOf(run_, options);
    if (basis)
        basis_ = *basis;
    else
        refuse(basis.refusal());
}

void DecisionRun::refuse(const Refusal& refusal) {
    status_ = lineStatus_ = refused;
    if (refusal.told())
        tell(run_.ui, {refusal.text, refusal.title});
    else
        tell(run_.ui, {noFigureText, notComputedTitle});
}

void DecisionRun::nextLine() {
    lineStart_ = run_.ui.messages().size();
    if (!common_) common_ = lineStart_;
    if (basis_) lineStatus_ = allDone;
}

Json DecisionRun::result() const {
    const std::vector<Told>& all = run_.ui.messages();
    std::vector<Told> told(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(common_.value_or(0)));
    told.insert(told.end(), all.begin() + static_cast<std::ptrdiff_t>(lineStart_), all.end());
    return resultJson(options_.file, statusWord(lineStatus_, "computed"), told);
}

int DecisionRun::finish(const Json& object, const std::string& table) const {
    return cli::finish({.results = options_.json ? jsonLine(object) : table,
                        .diagnostics = diagnostics(),
                        .status = status_});
}

DecisionTexts DecisionRun::texts() const {
    return decisionTexts(run_.record, run_.session.regional, basis_ ? basis_->expanded() : 0);
}

std::string DecisionRun::limitCell(double deviation, bool upper) const {
    if (!basis_ || !std::isfinite(deviation)) return "-";
    return forResults(
        withUnits(texts().limit(basis_->subject.mode + deviation, upper), run_.record.NominalUnits));
}

std::string DecisionRun::limitsCell(const Interval& deviations) const {
    return forResults(limitsText(*basis_, deviations, texts()));
}

Json limitJson(const DecisionBasis& basis, double deviation) {
    return std::isfinite(deviation) ? Json(basis.subject.mode + deviation) : Json();
}

void putUncertainty(Json& object, const DecisionBasis& basis) {
    object["CoverageFactor"] = basis.coverage;
    object["ExpandedUncertainty"] = basis.expanded();
    object["ToleranceToUncertainty"] = basis.ratio();
    object["MTE_Sigma"] = basis.sigma;
    object["DegFreedom"] = basis.degFreedom > 0 ? Json(basis.degFreedom) : Json();
}

void putRisks(Json& object, const std::optional<GuardedRisks>& risks) {
    const auto put = [&](const char* key, double GuardedRisks::*member) {
        object[key] = risks ? Json((*risks).*member) : Json();
    };
    put("FalseAcceptConsumer", &GuardedRisks::consumer);
    put("FalseAcceptProducer", &GuardedRisks::producer);
    put("FalseReject", &GuardedRisks::falseReject);
    put("Accepted", &GuardedRisks::accepted);
    put("InTolerance", &GuardedRisks::inTolerance);
}

std::string riskRows(const GuardedRisks& risks) {
    return tableRow("False accept, conditional", riskCell(risks.consumer, baselinePicture)) +
           tableRow("False accept, joint", riskCell(risks.producer, baselinePicture)) +
           tableRow("False reject risk", riskCell(risks.falseReject, baselinePicture));
}

} // namespace metrisk::cli
