// metrisk-cli observed: observed from true % in-tolerance of the subject parameter, and the way back.
#include "base/NumberText.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "cli/Readers.h"
#include "record/ToleranceUnits.h"
#include "risk/observed/ObservingEntries.h"
#include "unattended/ObservedShares.h"

namespace metrisk::cli {

namespace {

struct Options {
    std::string file;
    std::string settings;
    KnownShare known{};
    bool ignore = false;
    bool use = false;
    bool equalize = false;
    bool json = false;
};

std::string unitText(const Analysis& r, const Regional& regional) {
    const auto [option, offset, inTolerance] = ObservingUnit(r);
    std::string name = option == currentUnit ? "current MTE" : "other";
    if (option == otherUnit)
        for (const std::string* id : {&r.Obs_Manufacturer, &r.Obs_ModelNumber})
            if (!id->empty()) name += " " + forResults(*id);
    return name + ", \u00b1 " + forResults(withUnits(GeneralText(offset, regional), r.NominalUnits)) + ", " +
           GeneralText(100 * inTolerance, regional) + " % in-tolerance";
}

/// With four decimals, or as many more as tell a share below 100 % from it.
std::string pctText(double pct, const Regional& regional) {
    std::string text = FormatNumber(pct, PictureForDecimals(4), regional);
    for (int decimals = 5; decimals <= 15 && pct < 100 && ParseValue(text, regional) >= 100; ++decimals)
        text = FormatNumber(pct, PictureForDecimals(decimals), regional);
    return text + " %";
}

int observed(const Options& options) {
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    const bool read = run.open(options.file);
    const ObservedShares shares = read ? convertShare(run, options.known) : ObservedShares{};
    const Analysis& r = run.record;
    const int status = shares.computed ? allDone : read ? refused : unreadable;
    const char* word = statusWord(status, "computed");
    Output output{.diagnostics = diagnosticLines(options.file, run.ui.messages()), .status = status};
    if (options.json) {
        output.results = jsonLine(joined(run.result(options.file, word), sharesJson(r, shares)));
        return finish(output);
    }
    const auto pct = [&](double value) { return pctText(value, run.session.regional); };
    const auto exact = [&](bool ofTrue) -> std::string {
        if (!shares.exact || shares.exactIsTrue != ofTrue) return "";
        const std::string text = pct(100 * shares.exact->exact.value);
        if (text == pct(100 * shares.exact->published)) return "";
        return tableRow("", "Exact integration gives " + text + ".");
    };
    output.results = forResults(options.file) + "\n";
    if (!shares.computed) {
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
        command.text("--true", options->known.truePct, "True % in-tolerance; computes the observed")
            .shownAs("PERCENT")
            .check(isPercent);
    const Argument known =
        command.text("--observed", options->known.observedPct, "Observed % in-tolerance; computes the true")
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
    command.then([options, &chosen] {
        if (options->equalize) options->known.guardbands = GuardbandUse::Equalize;
        if (options->ignore) options->known.guardbands = GuardbandUse::Ignore;
        if (options->use) options->known.guardbands = GuardbandUse::Use;
        chosen = [options] { return observed(*options); };
    });
}

} // namespace metrisk::cli
