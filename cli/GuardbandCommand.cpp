// metrisk-cli guardband: guardbands that give a wanted risk, or equal risks.
#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Json.h"
#include "cli/Readers.h"
#include "desk/compute/ComputeGuardbands.h"
#include "desk/compute/ComputeSteps.h"
#include "desk/compute/KFactors.h"
#include "record/Symmetry.h"
#include "risk/exact/Verified.h"
#include "risk/guardband/ExactGuardband.h"

#include <algorithm>
#include <memory>
#include <optional>

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

/// Two sides that share neither multiplier nor k.
bool sharesNothing(const Analysis& r) {
    return r.OptTwoSided && !r.GB_SymmetricMult && !r.GB_SymmetricK;
}

/// The record's options as the command line has them. Without a word on symmetry its own stand; where it has
/// none either, sides alike share their multiplier.
void takeOptions(AnalysisRun& run, const Options& options) {
    Analysis& r = run.record;
    r.GB_KeyOn = options.equalize ? 2 : options.targetReject.empty() ? 0 : 1;
    const bool assumed = options.symmetric.empty() && sharesNothing(r) && isSymmetric(r);
    if (options.symmetric.empty() && !assumed) return;
    if (assumed) run.ui.note("solved with symmetric multipliers, since the tolerance is symmetric");
    r.GB_SymmetricMult = options.symmetric != "k";
    r.GB_AsymmetricMult = !r.GB_SymmetricMult;
    r.GB_SymmetricK = !r.GB_SymmetricMult;
}

/// What a solve has found; the guardbands themselves stand in the record.
struct Solved {
    Risks risks;
    Verified verified;
    std::optional<MissedTarget> missed; // by exact integration
};

GuardbandTarget targetOf(const Analysis& r, const std::optional<double>& risk) {
    if (r.GB_KeyOn == 2) return {GuardbandKey::Equalize};
    return {r.GB_KeyOn == 1 ? GuardbandKey::FalseReject : GuardbandKey::FalseAccept, risk.value_or(0)};
}

/// None if there are no such guardbands.
std::optional<Solved> solve(AnalysisRun& run, const Options& options) {
    Analysis& r = run.record;
    if (!fitBoth(run)) return std::nullopt;
    takeOptions(run, options);
    const std::string& target = r.GB_KeyOn == 1 ? options.targetReject : options.targetAccept;
    const std::optional<double> risk = options.equalize ? std::nullopt : riskOf(target);
    if (risk && !(*risk > 0)) {
        tell(run.ui, noTarget);
        return std::nullopt;
    }
    const std::optional<GuardbandPair> found = guardbandsAsked(run.session, risk);
    if (!found) {
        if (sharesNothing(r)) run.ui.note("choose with --symmetric multipliers or --symmetric k");
        return std::nullopt;
    }
    takeGuardbands(run.session, *found);
    Risks risks{};
    if (!risksAtLimits(run.session, true, risks)) return std::nullopt;
    risks = {std::max(risks.falseAccept, 0.0), std::max(risks.falseReject, 0.0)};
    holdWorksheetRisks(r, risks);
    r.GB_RisksStale = false;
    const GuardbandForm form =
        r.OptTwoSided && !r.GB_SymmetricMult ? GuardbandForm::KFactor : GuardbandForm::Multiplier;
    Verified verified =
        verifyRisks(r, risks, {-r.GB_LowerMult * r.SU_LowerOffset, r.GB_UpperMult * r.SU_UpperOffset});
    verified.baselineFalseAccept = verified.baselineFalseReject = {}; // not asked for here
    return Solved{risks, verified,
                  sharesNothing(r) ? std::nullopt : missedTarget(r, form, targetOf(r, risk))};
}

/// The multiplier that meets the target by exact integration, where that of the solve does not.
std::optional<double> exactMultiplier(const Analysis& r, const Solved& solved) {
    if (!solved.missed || !solved.missed->guardband) return std::nullopt;
    const double exact = *solved.missed->guardband;
    if (solved.missed->form == GuardbandForm::Multiplier) return exact;
    return multiplierFromK(exact, r.SU_UpperOffset, r.MTE_Sigma);
}

std::string asJson(const std::string& file, const char* status, const AnalysisRun& run,
                   const std::optional<Solved>& solved) {
    const Analysis& r = run.record;
    const auto given = [&](const auto& value) { return solved ? Json(value) : Json(); };
    const Verified verified = solved ? solved->verified : Verified{};
    const bool byK = solved && solved->missed && solved->missed->form == GuardbandForm::KFactor;
    Json object = run.result(file, status);
    object["FalseAccept"] = solved ? solved->risks.falseAccept : noFigure;
    object["FalseReject"] = solved ? solved->risks.falseReject : noFigure;
    object["GB_UpperMult"] = given(r.GB_UpperMult);
    object["GB_LowerMult"] = given(r.GB_LowerMult);
    object["GB_UpperK"] = given(r.GB_UpperK);
    object["GB_LowerK"] = given(r.GB_LowerK);
    object["GB_SymmetricMult"] = given(static_cast<bool>(r.GB_SymmetricMult));
    object["GB_SymmetricK"] = given(static_cast<bool>(r.GB_SymmetricK));
    object["GB_KeyOn"] = given(r.GB_KeyOn);
    object["MTE_Sigma"] = given(r.MTE_Sigma);
    object["SU_Distribution"] = given(r.SU_Distribution);
    object["FalseAcceptOption"] = given(r.FalseAcceptOption);
    object["Verified"] = {{"FalseAccept", figureJson(verified.falseAccept)},
                          {"FalseReject", figureJson(verified.falseReject)}};
    object["AgreeingDigits"] = agreeingDigits(verified);
    object["ExactMultiplier"] = solved ? exactMultiplier(r, *solved) : std::nullopt;
    object["ExactK"] = byK ? solved->missed->guardband : std::nullopt;
    return jsonLine(object);
}

std::string asTable(const std::string& file, const char* status, const AnalysisRun& run,
                    const std::optional<Solved>& solved) {
    const Analysis& r = run.record;
    const auto number = [&](double value) { return FormatNumber(value, "0.00000000", run.session.regional); };
    std::string table = forResults(file) + "\n";
    if (!solved) return table + tableRow("Status", status) + "\n";
    if (r.OptTwoSided && !sharesNothing(r))
        table += tableRow("Symmetric", r.GB_SymmetricMult ? "multipliers" : "k-factors");
    if (!r.OptSingleLower) table += tableRow("Upper multiplier", number(r.GB_UpperMult));
    if (!r.OptSingleUpper) table += tableRow("Lower multiplier", number(r.GB_LowerMult));
    if (!r.OptSingleLower) table += tableRow("Upper k-factor", number(r.GB_UpperK));
    if (!r.OptSingleUpper) table += tableRow("Lower k-factor", number(r.GB_LowerK));
    table += tableRow("False accept risk", riskCell(solved->risks.falseAccept, riskPicture)) +
             exactRow(solved->verified.falseAccept, riskPicture);
    table += tableRow("False reject risk", riskCell(solved->risks.falseReject, riskPicture)) +
             exactRow(solved->verified.falseReject, riskPicture);
    if (solved->missed) table += tableRow("", missedTargetText(*solved->missed, run.session.regional));
    return table + "\n";
}

int guardband(const Options& options) {
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    int status = unreadable;
    std::optional<Solved> solved;
    if (run.open(options.file)) {
        solved = solve(run, options);
        status = solved ? allDone : refused;
        if (solved && options.save && !saveResults(run, options.file, options.force)) status = refused;
    }
    const char* word = !solved && status == unreadable ? "unreadable" : solved ? "computed" : "refused";
    return finish({.results = (options.json ? asJson : asTable)(options.file, word, run, solved),
                   .diagnostics = run.diagnostics(options.file),
                   .status = status});
}

} // namespace

void addGuardband(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command("guardband", "Solve for guardbands of an analysis file");
    command.text("FILE", options->file, "Analysis file").shownAs(" ").isPath().required();
    const Argument accept =
        command.text("--target-fa", options->targetAccept, "False accept risk wanted, as in 2% or 500ppm")
            .shownAs("RISK")
            .check(isRisk);
    const Argument reject =
        command.text("--target-fr", options->targetReject, "False reject risk wanted, as in 2% or 500ppm")
            .shownAs("RISK")
            .check(isRisk);
    const Argument equalize =
        command.flag("--equalize", options->equalize, "Equal false accept and false reject risks");
    command.alternatives({accept, reject, equalize}, true);
    command
        .text("--symmetric", options->symmetric,
              "One of multipliers, k: what both sides share; otherwise the file decides")
        .shownAs("WHAT")
        .oneOf({"multipliers", "k"});
    command.flag("--json", options->json, "Print one JSON object instead of text");
    command.flag("--save", options->save, "Write guardbands and their risks back to the file");
    command.flag("--force", options->force, "With --save: replace an existing .mrk beside a .dat file");
    addSettingsOption(command, options->settings);
    command.examples({"guardband multimeter-dc-volts.mrk --target-fa 0.5%",
                      "guardband multimeter-dc-volts.mrk --equalize --symmetric k --json"});
    command.then([options, &chosen] { chosen = [options] { return guardband(*options); }; });
}

} // namespace metrisk::cli
