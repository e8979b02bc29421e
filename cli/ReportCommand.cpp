// metrisk-cli report: the report of an analysis as a file, or of many analyses as many files.
#include "cli/AnalysisRun.h"
#include "cli/BatchTargets.h"
#include "cli/Commands.h"
#include "model/Text.h"
#include "persistence/AtomicFile.h"
#include "persistence/SettingKeys.h"
#include "reports/ReportFiles.h"
#include "reports/files/CairoPress.h"
#include "shell/mainscreen/DataGate.h"

#include <algorithm>

namespace metrisk::cli {

namespace {

struct Options {
    BatchTargets targets;
    std::string format = "pdf";
    std::vector<std::string> sections{"risk"};
    std::string font;
    std::optional<std::string> organization;
    std::string paper = "letter";
    std::string settings;

    bool holds(const char* section) const {
        return std::find(sections.begin(), sections.end(), section) != sections.end();
    }
    ReportSelection selection() const {
        ReportSelection selection;
        selection.Report_IncludeRisk = holds("risk");
        selection.Report_IncludePlots = holds("plots");
        selection.Report_IncludeUncertainty = holds("uncertainty");
        selection.Report_IncludeErrorPlot = holds("error");
        selection.Report_FontName = font;
        return selection;
    }
    PageSetup page() const { return paper == "a4" ? PageSetup::a4() : PageSetup{}; }
};

bool write(AnalysisRun& run, const std::string& target, const Options& options, std::string& problem) {
    if (options.organization) {
        run.record.Organization = withoutQuotes(std::string(firstCharacters(*options.organization, 60)));
        run.record.IncludeOrganization = true;
    }
    if (!haveData(run.session, Needs::Both)) return false;
    const auto bytes = reportBytes(run.session, options.selection(), options.page(), target, CairoPress());
    if (!bytes || replaceFile(target, *bytes)) return bytes.has_value();
    problem = diagnosticLine(target, "cannot be written");
    return false;
}

Output report(Workplace& workplace, const std::string& file, const std::string& target,
              const Options& options) {
    AnalysisRun run(workplace);
    int status = unreadable;
    std::string problem;
    if (run.open(file)) status = write(run, target, options, problem) ? allDone : refused;
    return {.diagnostics = run.diagnostics(file) + problem, .status = status};
}

int reportAll(Options& options) {
    options.targets.end = "." + options.format;
    const std::string& path = options.targets.path;
    if (!path.empty() && reportFormatOf(path) == ReportFormat::None)
        return finish({.diagnostics = diagnosticLine(path, "The Report Type is not registered."),
                       .status = wrongUsage});
    Workplace workplace(options.settings);
    if (options.font.empty()) options.font = workplace.settings.read(reportSettings::defaultFont);
    return options.targets.run("report", [&](const std::string& file, const std::string& target) {
        return report(workplace, file, target, options);
    });
}

} // namespace

void addReport(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("report", "Write reports of analysis files as PDF, Rich Text or HTML");
    options->targets.addTo(command, "OUT.pdf|doc|htm");
    command.text("--format", options->format, "With --out-dir: pdf (the default), doc or htm")
        .shownAs("FORMAT")
        .oneOf({"pdf", "doc", "htm"});
    command
        .texts("--sections", options->sections,
               "Any of risk (the default), plots, uncertainty, error, with commas between")
        .shownAs("LIST")
        .separatedBy(',')
        .oneOf({"risk", "plots", "uncertainty", "error"});
    command.text("--font", options->font, "Font family of the texts").shownAs("NAME");
    command.text("--organization", options->organization, "Organization at the head of the report")
        .shownAs("NAME");
    command.text("--paper", options->paper, "letter (the default) or a4")
        .shownAs("SIZE")
        .oneOf({"letter", "a4"});
    addSettingsOption(command, options->settings);
    command.then([options, &chosen] { chosen = [options] { return reportAll(*options); }; });
}

} // namespace metrisk::cli
