// metrisk-cli observed: observed from true % in-tolerance of the subject parameter, and the way back.
#include "base/NumberText.h"
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Json.h"
#include "cli/Readers.h"
#include "desk/compute/ObservedPct.h"
#include "desk/compute/ObservingUnit.h"
#include "record/ToleranceUnits.h"
#include "risk/observed/ObservingEntries.h"

namespace metrisk::cli {

namespace {

struct Options {
    std::string file;
    std::string settings;
    std::string truePct;
    std::string observedPct;
    bool ignore = false;
    bool use = false;
    bool equalize = false;
    bool json = false;
};

GuardbandUse guardbandUse(const Options& options, const Analysis& r) {
    if (options.equalize) return GuardbandUse::Equalize;
    if (options.ignore) return GuardbandUse::Ignore;
    return options.use || r.IncludeGuardbands ? GuardbandUse::Use : GuardbandUse::Ignore;
}

/// The unit that the figures are of: as it stands in the boxes of the worksheet.
struct ObservingUnit {
    int option;
    double offset; // nominal units
    double inTolerance;
};

ObservingUnit unitOf(const Analysis& r) {
    if (anotherUnitObserves(r)) return {otherUnit, r.Obs_Offset, r.Obs_AOP};
    return {currentUnit, r.MTE_Offset, r.MTE_PctInTol / 100};
}

std::string unitText(const Analysis& r, const Regional& regional) {
    const auto [option, offset, inTolerance] = unitOf(r);
    std::string name = option == currentUnit ? "current MTE" : "other";
    if (option == otherUnit)
        for (const std::string* id : {&r.Obs_Manufacturer, &r.Obs_ModelNumber})
            if (!id->empty()) name += " " + forResults(*id);
    return name + ", \u00b1 " + forResults(withUnits(GeneralText(offset, regional), r.NominalUnits)) + ", " +
           GeneralText(100 * inTolerance, regional) + " % in-tolerance";
}

/// The second figure of the share that was computed; fractions.
struct Second {
    bool ofTrue;
    VerifiedFigure figure;
};

std::optional<Second> secondOf(const AnalysisRun& run, const Options& options) {
    const Analysis& r = run.record;
    const GuardbandUse use = options.equalize ? GuardbandUse::Use : guardbandUse(options, r);
    const ObservedModel model(r, use, run.session.regional);
    const double x = r.SU_PctInTol / 100, observed = r.Obs_PctInTol / 100;
    if (options.truePct.empty()) {
        const auto exact = model.exactTrueAt(observed, x);
        if (!exact) return std::nullopt;
        const auto seen = model.exactObservedAt(*exact);
        return Second{true, {x, {*exact, seen ? seen->bound : 0}}};
    }
    const auto exact = model.exactObservedAt(x);
    return exact ? std::optional(Second{false, {observed, *exact}}) : std::nullopt;
}

/// With four decimals, or as many more as tell a share below 100 % from it.
std::string pctText(double pct, const Regional& regional) {
    std::string text = FormatNumber(pct, PictureForDecimals(4), regional);
    for (int decimals = 5; decimals <= 15 && pct < 100 && ParseValue(text, regional) >= 100; ++decimals)
        text = FormatNumber(pct, PictureForDecimals(decimals), regional);
    return text + " %";
}

bool convert(AnalysisRun& run, const Options& options) {
    Analysis& r = run.record;
    if (!fitBoth(run)) return false;
    if (anotherUnitObserves(r) && !withReason(run, "no fit", [&] { return FitObservingUnit(run.session); }))
        return false;
    const GuardbandUse use = guardbandUse(options, r);
    const std::string text =
        withoutPercentSign(options.truePct.empty() ? options.observedPct : options.truePct);
    const double pct = ParseValue(text, run.session.regional);
    if (!options.truePct.empty() && !(pct >= 0 && pct <= 100)) {
        tell(run.ui, {"The true % in-tolerance must be from 0 to 100.", "Not Computed"});
        return false;
    }
    if (!options.truePct.empty()) return ObservedFromTrue(run.session, use, text);
    if (!(pct > 0 && pct < 100)) {
        tell(run.ui, {"The observed % in-tolerance must be above 0 and below 100.", "Not Computed"});
        return false;
    }
    return TrueFromObserved(run.session, use, text, ObservedEntry::ObservedPct);
}

int observed(const Options& options) {
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    const bool read = run.open(options.file);
    const bool done = read && convert(run, options);
    const std::optional<Second> second = done ? secondOf(run, options) : std::nullopt;
    const Analysis& r = run.record;
    const char* word = done ? "computed" : read ? "refused" : "unreadable";
    Output output{.diagnostics = run.diagnostics(options.file),
                  .status = done   ? allDone
                            : read ? refused
                                   : unreadable};
    if (options.json) {
        const ObservingUnit unit = unitOf(r);
        const auto given = [&](double value) { return done ? Json(value) : Json(); };
        Json object = run.result(options.file, word);
        object["True"] = given(r.SU_PctInTol / 100);
        object["Observed"] = given(r.Obs_PctInTol / 100);
        object["SU_PctInTol"] = given(r.SU_PctInTol);
        object["Obs_PctInTol"] = given(r.Obs_PctInTol);
        object["GB_UpperMult"] = given(r.GB_UpperMult);
        object["GB_LowerMult"] = given(r.GB_LowerMult);
        object["FalseAcceptOption"] = done ? Json(r.FalseAcceptOption) : Json();
        object["Obs_ObservingUnitOption"] = done ? Json(unit.option) : Json();
        object["Obs_Offset"] = given(unit.offset);
        object["Obs_AOP"] = given(unit.inTolerance);
        const auto exact = [&](bool ofTrue) {
            return second && second->ofTrue == ofTrue ? figureJson(second->figure) : Json();
        };
        object["Verified"] = {{"True", exact(true)}, {"Observed", exact(false)}};
        object["AgreeingDigits"] = second ? Json(agreeingDigits(second->figure)) : Json();
        output.results = jsonLine(object);
        return finish(output);
    }
    const auto pct = [&](double value) { return pctText(value, run.session.regional); };
    const auto exact = [&](bool ofTrue) -> std::string {
        if (!second || second->ofTrue != ofTrue) return "";
        const std::string text = pct(100 * second->figure.exact.value);
        if (text == pct(100 * second->figure.published)) return "";
        return tableRow("", "Exact integration gives " + text + ".");
    };
    output.results = forResults(options.file) + "\n";
    if (!done) {
        output.results += tableRow("Status", word);
    } else {
        output.results += tableRow("Observing unit", unitText(r, run.session.regional)) +
                          tableRow("True % in-tolerance", pct(r.SU_PctInTol)) + exact(true) +
                          tableRow("Observed % in-tolerance", pct(r.Obs_PctInTol)) + exact(false);
        if (options.equalize)
            output.results += tableRow("Guardband multiplier",
                                       FormatNumber(r.GB_UpperMult, "0.0000000", run.session.regional));
    }
    output.results += "\n";
    return finish(output);
}

} // namespace

void addObserved(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("observed", "Convert true and observed % in-tolerance of an analysis file");
    command.text("FILE", options->file, "Analysis file").shownAs(" ").isPath().required();
    const Argument truth =
        command.text("--true", options->truePct, "True % in-tolerance; computes the observed")
            .shownAs("PERCENT")
            .check(isPercent);
    const Argument known =
        command.text("--observed", options->observedPct, "Observed % in-tolerance; computes the true")
            .shownAs("PERCENT")
            .check(isPercent);
    command.alternatives({truth, known}, true);
    const Argument ignore =
        command.flag("--ignore-guardbands", options->ignore, "Accepted within the tolerance limits");
    const Argument use = command.flag("--use-guardbands", options->use, "Accepted within the test limits");
    const Argument equalize =
        command.flag("--equalize", options->equalize, "With --true: guardbands that make both figures equal")
            .excludes(known);
    command.alternatives({ignore, use, equalize}, false);
    command.flag("--json", options->json, "Print one JSON object instead of text");
    addSettingsOption(command, options->settings);
    command.examples({"observed torque-wrench-50nm.mrk --true 90",
                      "observed torque-wrench-50nm.mrk --observed 88.5% --json"});
    command.then([options, &chosen] { chosen = [options] { return observed(*options); }; });
}

} // namespace metrisk::cli
