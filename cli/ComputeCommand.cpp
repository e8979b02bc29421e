// metrisk-cli compute: risks and equivalent accuracy ratio of analysis files.
#include "base/DisplayRule.h"
#include "base/NumberFormat.h"
#include "base/NumberText.h"
#include "base/Picture.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/FileList.h"
#include "cli/OrderedBatch.h"
#include "cli/Output.h"
#include "desk/compute/EquivalentRatio.h"
#include "desk/files/AnalysisFile.h"
#include "record/ToleranceUnits.h"
#include "risk/decision/DecisionSentence.h"
#include "unattended/AnalysisRun.h"
#include "unattended/ComputedFigures.h"
#include "unattended/Json.h"

#include <cmath>
#include <exception>

namespace metrisk::cli {

namespace {

struct Options {
    FileList list;
    std::string settings;
    bool json = false;
    bool save = false;
    bool force = false;
    bool noVerify = false;
    unsigned threads = 0;
    CoverageChoice coverage{};
};

std::string bothRows(const BothConventions& both, const Analysis& record, const Regional& regional) {
    const ToleranceUnits units = measuringUnits(record);
    const bool nominal = units.isPpm() || units.name.empty();
    const double expanded = both.expanded * (nominal ? 1 : units.factor);
    const std::string name = nominal ? record.NominalUnits : std::string(units.name);
    const auto ratio = [&](double value) { return FormatNumber(value, "#,##0.00", regional) + " : 1"; };
    return tableRow("False accept, conditional", riskCell(both.consumer, riskPicture)) +
           tableRow("False accept, joint", riskCell(both.producer, riskPicture)) +
           tableRow("Test uncertainty ratio", ratio(both.ratios.tur)) +
           tableRow(
               "Expanded uncertainty U",
               forResults(withUnits(
                   FormatNumber(expanded, PictureForDecimals(decimalsOfWidth(expanded)), regional), name)) +
                   " (k = " + GeneralText(both.coverage, regional, 4) + ")") +
           tableRow("Ratio of tolerance to U", ratio(both.ratios.toleranceToUncertainty));
}

std::string ratioText(const Analysis& r, const Regional& regional) {
    const std::string ratio = FormatNumber(r.EqAccRat, "#,##0.00", regional) + " : " + r.EqAccRatDen;
    return ratioAttained(r.EqAccRat) ? ratio : ratio + ", " + noSuchRatioText;
}

std::string asTable(const std::string& file, int status, const AnalysisRun& run,
                    const ComputedFigures& figures) {
    const Analysis& r = run.record;
    const Regional& regional = run.session.regional;
    std::string table = forResults(file) + "\n";
    if (status != allDone) table += tableRow("Status", statusWord(status, "computed"));
    if (status == unreadable) return table + "\n";
    const auto sigma = [&](const std::string& distribution, double value) {
        return distribution + ", sigma " +
               forResults(withUnits(GeneralText(value, regional), r.NominalUnits));
    };
    const Verified& v = figures.verified;
    if (status == allDone) {
        const bool ratioFound = r.ComputeEqRatio && r.EqAccRat > 0;
        table += tableRow("Subject parameter", sigma(r.SU_Distribution, r.SU_Sigma));
        table += tableRow("Measuring parameter", sigma("Normal", r.MTE_Sigma));
        table += tableRow("False accept option", r.FalseAcceptOption == 1 ? "Producer" : "Consumer");
        table += tableRow("False accept risk", riskCell(figures.falseAccept, riskPicture)) +
                 exactRow(v.falseAccept, riskPicture);
        table += tableRow("False reject risk", riskCell(figures.falseReject, riskPicture)) +
                 exactRow(v.falseReject, riskPicture);
        table += tableRow("Equivalent accuracy ratio", ratioFound ? ratioText(r, regional) : "not computed");
        if (!figures.ratioRemark.empty()) table += tableRow("", figures.ratioRemark);
    }
    table += tableRow("Baseline false accept risk", riskCell(figures.baselineFalseAccept, baselinePicture)) +
             exactRow(v.baselineFalseAccept, baselinePicture);
    table += tableRow("Baseline false reject risk", riskCell(figures.baselineFalseReject, baselinePicture)) +
             exactRow(v.baselineFalseReject, baselinePicture);
    if (figures.both) table += bothRows(*figures.both, r, regional);
    return table + "\n";
}

/// Of a file that cannot be read every figure is null.
std::string asJson(const std::string& file, int status, const AnalysisRun& run,
                   const ComputedFigures& figures) {
    Json object = resultJson(file, statusWord(status, "computed"), run.ui.messages());
    Json members = figuresJson(run.record, figures);
    if (status == unreadable) members["FalseAcceptOption"] = Json();
    return jsonLine(joined(std::move(object), std::move(members)));
}

Output computeFile(Workplace& workplace, const std::string& file, const Options& options) {
    AnalysisRun run(workplace);
    ComputedFigures figures;
    int status = unreadable;
    bool saved = true;
    if (run.open(file)) {
        figures = computeFigures(run, options.coverage, !options.noVerify);
        status = figures.computed ? allDone : refused;
        if (options.save && status == allDone) saved = saveResults(run, file, options.force);
    }
    return {.results = (options.json ? asJson : asTable)(file, status, run, figures),
            .diagnostics = diagnosticLines(file, run.ui.messages()),
            .status = saved ? status : refused};
}

int computeAll(const Options& options) {
    if (const auto factor = coverageFactor(options.coverage, 0); !factor)
        return finish(
            refusal("", factor.refusal().title + ": " + factor.refusal().text, refused, options.json));
    Workplace workplace(options.settings);
    const std::vector<std::string>& files = options.list.files;
    Outlet outlet(files.size());
    runOrdered(
        files.size(), threadsFor(options.threads, options.save),
        [&](std::size_t i) -> Output {
            const std::string& file = files[i];
            try {
                return computeFile(workplace, file, options);
            } catch (const std::exception& fault) { // memory: the files behind it may need less
                return refusal(file, faultText(fault), refused, options.json);
            }
        },
        [&](const Output& output) { outlet.put(output); });
    return outlet.status();
}

} // namespace

void addCompute(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("compute", "Compute risks and equivalent accuracy ratio of analysis files");
    options->list.addTo(command, "Analysis files");
    command.flag("--json", options->json, "Print one JSON object per file, each on one line");
    command.flag("--save", options->save, "Write the results back to each file");
    command.flag("--force", options->force, "With --save: replace an existing .mrk beside a .dat file");
    command.flag("--no-verify", options->noVerify, "Leave out the second figures");
    addCoverageOption(command, options->coverage);
    addSettingsOption(command, options->settings);
    command
        .count("--threads", options->threads,
               "Threads to use; 0, the default, means one a core, with --save at least eight")
        .shownAs("N");
    command.examples(
        {"compute torque-wrench-50nm.mrk", "compute --json *.mrk", "compute --save gauge-block-25mm.mrk"});
    command.then([options, &chosen] {
        options->list.check();
        chosen = [options] {
            options->list.read();
            return computeAll(*options);
        };
    });
}

} // namespace metrisk::cli
