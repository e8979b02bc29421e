// metrisk-cli guardband: guardbands that give a wanted risk, or equal risks, and the risks of given ones.
#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "cli/Commands.h"
#include "cli/EntryOptions.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "cli/Readers.h"
#include "desk/compute/ComputeGuardbands.h"
#include "desk/compute/ComputeSteps.h"
#include "desk/compute/KFactors.h"
#include "record/Symmetry.h"
#include "risk/exact/Verified.h"
#include "risk/guardband/ExactGuardband.h"
#include "unattended/AnalysisRun.h"
#include "unattended/Json.h"

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
    EntryOptions given; // guardbands alone
    bool off = false;
    bool equalize = false;
    bool json = false;
    bool save = false;
    bool force = false;
};

/// The entries that a guardband is given by, and their options.
struct GivenOption {
    Entry entry;
    const char* name;
    const char* about;
};
constexpr GivenOption givenOptions[] = {
    {Entry::Gb, "--mult", "Risks at this multiplier of both sides"},
    {Entry::GbUpper, "--mult-upper", "The same of the upper side; the other's is 1 if it is not given"},
    {Entry::GbLower, "--mult-lower", "The same of the lower side"},
    {Entry::GbK, "--k", "Risks at this k-factor of both sides"},
    {Entry::GbKUpper, "--k-upper", "The same of the upper side; the other's is 0 if it is not given"},
    {Entry::GbKLower, "--k-lower", "The same of the lower side"},
    {Entry::AcceptUpper, "--accept-upper", "Risks at this upper acceptance limit"},
    {Entry::AcceptLower, "--accept-lower", "Risks at this lower acceptance limit"}};

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

/// Of the guardbands in the record, or without them.
std::optional<Solved> risksOf(AnalysisRun& run, bool guardbanded) {
    Analysis& r = run.record;
    Risks risks{};
    if (!risksAtLimits(run.session, guardbanded, risks)) return std::nullopt;
    risks = {std::max(risks.falseAccept, 0.0), std::max(risks.falseReject, 0.0)};
    const double upper = guardbanded ? r.GB_UpperMult : 1, lower = guardbanded ? r.GB_LowerMult : 1;
    Verified verified = verifyRisks(r, risks, {-lower * r.SU_LowerOffset, upper * r.SU_UpperOffset});
    verified.baselineFalseAccept = verified.baselineFalseReject = {}; // not asked for here
    return Solved{risks, verified, std::nullopt};
}

/// What holds of the guardbands in the record once they are known.
void holdRisks(Analysis& r, const Risks& risks) {
    holdWorksheetRisks(r, risks);
    r.GB_RisksStale = false;
}

/// The risks of guardbands that are given, which count from now on, or without those that the record holds.
std::optional<Solved> tryGiven(AnalysisRun& run, const Options& options) {
    Analysis& r = run.record;
    if (options.off) {
        r.IncludeGuardbands = false;
        return fitBoth(run) ? risksOf(run, false) : std::nullopt;
    }
    if (!options.given.putInto(run, {}) || !fitBoth(run)) return std::nullopt;
    if (!r.GB_UpperKEntered) {
        ShowUpperKFactor(r, run.session.regional);
        ShowLowerKFactor(r, run.session.regional);
    }
    const auto solved = risksOf(run, true);
    if (solved) holdRisks(r, solved->risks);
    return solved;
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
    std::optional<Solved> solved = risksOf(run, true);
    if (!solved) return std::nullopt;
    holdRisks(r, solved->risks);
    const GuardbandForm form =
        r.OptTwoSided && !r.GB_SymmetricMult ? GuardbandForm::KFactor : GuardbandForm::Multiplier;
    if (!sharesNothing(r)) solved->missed = missedTarget(r, form, targetOf(r, risk));
    return solved;
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
        solved = options.off || options.given.any() ? tryGiven(run, options) : solve(run, options);
        status = solved ? allDone : refused;
        if (solved && options.save) {
            if (!saveResults(run, options.file, options.force)) status = refused;
            if (!run.record.IncludeGuardbands && !options.off)
                run.ui.note("the guardbands are held; risks count them once IncludeGuardbands=true is set");
        }
    }
    const char* word = !solved && status == unreadable ? "unreadable" : solved ? "computed" : "refused";
    return finish({.results = (options.json ? asJson : asTable)(options.file, word, run, solved),
                   .diagnostics = diagnosticLines(options.file, run.ui.messages()),
                   .status = status});
}

} // namespace

void addGuardband(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("guardband", "Solve for guardbands of an analysis file, or try given ones");
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
    std::vector<Argument> given;
    for (const GivenOption& one : givenOptions) {
        auto& text = options->given.entries[static_cast<std::size_t>(one.entry)];
        given.push_back(command.text(one.name, text, one.about).shownAs("VALUE").under("Given guardbands"));
    }
    const Argument off =
        command.flag("--off", options->off, "Risks without guardbands, which do not count any more")
            .under("Given guardbands");
    command.alternatives({accept, reject, equalize, off}, false);
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
                      "guardband multimeter-dc-volts.mrk --equalize --symmetric k --json",
                      "guardband multimeter-dc-volts.mrk --mult 0.9",
                      "guardband multimeter-dc-volts.mrk --accept-upper 10.0003 --accept-lower 9.9997"});
    command.then([options, accept, reject, equalize, off, &chosen] {
        const bool solves = accept.given() || reject.given() || equalize.given();
        const bool gives = options->given.any();
        if (gives + solves + off.given() > 1)
            throw WrongUsage("a target, a given guardband and --off exclude each other");
        if (!gives && !solves && !off.given())
            throw WrongUsage("one of --target-fa, --target-fr, --equalize, --mult, --k, --accept-upper, "
                             "--accept-lower, --off is required");
        if (!options->symmetric.empty() && !solves) throw WrongUsage("--symmetric goes with a target");
        chosen = [options] { return guardband(*options); };
    });
}

} // namespace metrisk::cli
