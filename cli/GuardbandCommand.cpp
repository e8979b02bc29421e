// metrisk-cli guardband: guardbands that give a wanted risk, or equal risks.
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Json.h"
#include "model/DisplayRule.h"
#include "model/NumberText.h"
#include "risk/ComputeSteps.h"
#include "risk/guardband/ComputeGuardbands.h"

#include <charconv>
#include <cmath>

namespace metrisk::cli {

namespace {

constexpr Message noTarget{"The target risk must be above 0.", "Guardbands Not Computed"};

struct Options {
    std::string file;
    std::string settings;
    std::string targetAccept;
    std::string targetReject;
    std::string symmetric;
    bool equalize = false;
    bool json = false;
    bool save = false;
    bool force = false;
};

/// The fraction that "2%" or "500ppm" stands for; none for anything else.
std::optional<double> targetOf(std::string_view text) {
    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec != std::errc{} || !std::isfinite(value)) return std::nullopt;
    const std::string_view units = text.substr(static_cast<std::size_t>(read.ptr - text.data()));
    if (units != percentUnits && units != ppmUnits) return std::nullopt;
    return riskFraction(value, units);
}

std::string isTarget(const std::string& text) {
    return targetOf(text) ? "" : text + " is no risk such as 2% or 500ppm";
}

/// The record's options as the command line has them; without a word on symmetry its own stand.
void takeOptions(Analysis& r, const Options& options) {
    r.GB_KeyOn = options.equalize ? 2 : options.targetReject.empty() ? 0 : 1;
    if (options.symmetric.empty()) return;
    r.GB_SymmetricMult = options.symmetric == "multipliers";
    r.GB_AsymmetricMult = !r.GB_SymmetricMult;
    r.GB_SymmetricK = !r.GB_SymmetricMult;
}

/// The risks of the guardbands found; none if there are none.
std::optional<Risks> solve(AnalysisRun& run, const Options& options) {
    Analysis& r = run.record;
    if (!fitBoth(run)) return std::nullopt;
    takeOptions(r, options);
    const std::string& target = r.GB_KeyOn == 1 ? options.targetReject : options.targetAccept;
    const std::optional<double> risk = options.equalize ? std::nullopt : targetOf(target);
    if (risk && !(*risk > 0)) {
        tell(run.ui, noTarget);
        return std::nullopt;
    }
    const std::optional<GuardbandPair> found = guardbandsAsked(run.session, risk);
    if (!found) return std::nullopt;
    takeGuardbands(run.session, *found);
    Risks risks{};
    if (!risksAtLimits(run.session, true, risks)) return std::nullopt;
    risks = {notNegative(risks.falseAccept), notNegative(risks.falseReject)};
    holdWorksheetRisks(r, risks);
    r.GB_RisksStale = false;
    return risks;
}

std::string asJson(const std::string& file, const char* status, const AnalysisRun& run,
                   const std::optional<Risks>& risks) {
    const Analysis& r = run.record;
    const auto given = [&](const auto& value) { return risks ? Json(value) : Json(); };
    return jsonLine({{"file", file},
                     {"status", status},
                     {"messages", messagesJson(run.ui.messages())},
                     {"FalseAccept", risks ? risks->falseAccept : noFigure},
                     {"FalseReject", risks ? risks->falseReject : noFigure},
                     {"GB_UpperMult", given(r.GB_UpperMult)},
                     {"GB_LowerMult", given(r.GB_LowerMult)},
                     {"GB_UpperK", given(r.GB_UpperK)},
                     {"GB_LowerK", given(r.GB_LowerK)},
                     {"GB_SymmetricMult", given(static_cast<bool>(r.GB_SymmetricMult))},
                     {"GB_SymmetricK", given(static_cast<bool>(r.GB_SymmetricK))},
                     {"GB_KeyOn", given(r.GB_KeyOn)},
                     {"MTE_Sigma", given(r.MTE_Sigma)},
                     {"SU_Distribution", given(r.SU_Distribution)},
                     {"FalseAcceptOption", given(r.FalseAcceptOption)}});
}

std::string asTable(const std::string& file, const char* status, const AnalysisRun& run,
                    const std::optional<Risks>& risks) {
    const Analysis& r = run.record;
    const auto number = [&](double value) { return FormatNumber(value, "0.00000000", run.session.regional); };
    std::string table = forResults(file) + "\n";
    if (!risks) return table + tableRow("Status", status) + "\n";
    if (!r.OptSingleLower) table += tableRow("Upper multiplier", number(r.GB_UpperMult));
    if (!r.OptSingleUpper) table += tableRow("Lower multiplier", number(r.GB_LowerMult));
    if (!r.OptSingleLower) table += tableRow("Upper k-factor", number(r.GB_UpperK));
    if (!r.OptSingleUpper) table += tableRow("Lower k-factor", number(r.GB_LowerK));
    table += tableRow("False accept risk", riskCell(risks->falseAccept, riskPicture));
    table += tableRow("False reject risk", riskCell(risks->falseReject, riskPicture));
    return table + "\n";
}

int guardband(const Options& options) {
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    int status = unreadable;
    std::optional<Risks> risks;
    if (run.open(options.file)) {
        risks = solve(run, options);
        status = risks ? allDone : refused;
        if (risks && options.save && !saveResults(run, options.file, options.force)) status = refused;
    }
    const char* word = !risks && status == unreadable ? "unreadable" : risks ? "computed" : "refused";
    return finish({.results = (options.json ? asJson : asTable)(options.file, word, run, risks),
                   .diagnostics = run.diagnostics(options.file),
                   .status = status});
}

} // namespace

void addGuardband(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command("guardband", "Solve for guardbands of an analysis file");
    command.text("FILE", options->file, "Analysis file").shownAs(" ").required();
    const Arguments goal = command.group("goal", 1, 1);
    goal.text("--target-fa", options->targetAccept, "False accept risk wanted, as in 2% or 500ppm")
        .shownAs("RISK")
        .check(isTarget);
    goal.text("--target-fr", options->targetReject, "False reject risk wanted, as in 2% or 500ppm")
        .shownAs("RISK")
        .check(isTarget);
    goal.flag("--equalize", options->equalize, "Equal false accept and false reject risks");
    command
        .text("--symmetric", options->symmetric,
              "One of multipliers, k: what both sides share; otherwise the file decides")
        .shownAs("WHAT")
        .oneOf({"multipliers", "k"});
    command.flag("--json", options->json, "Print one JSON object instead of text");
    command.flag("--save", options->save, "Write guardbands and their risks back to the file");
    command.flag("--force", options->force, "With --save: replace an existing .mrk beside a .dat file");
    addSettingsOption(command, options->settings);
    command.then([options, &chosen] { chosen = [options] { return guardband(*options); }; });
}

} // namespace metrisk::cli
