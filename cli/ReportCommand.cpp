// metrisk-cli report: the report of an analysis as a file, or of many analyses as many files.
#include "base/Text.h"
#include "cli/AnalysisRun.h"
#include "cli/BatchTargets.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/Json.h"
#include "cli/ReadingOption.h"
#include "cli/RuleOptions.h"
#include "desk/compute/DataGate.h"
#include "desk/files/ReportFiles.h"
#include "files/CairoPress.h"
#include "persistence/SettingKeys.h"

#include <algorithm>

namespace metrisk::cli {

namespace {

struct Options : ReadingOption {
    BatchTargets targets;
    std::string format = "pdf";
    std::vector<std::string> sections{"risk"};
    std::string font;
    std::optional<std::string> organization;
    std::string paper = "a4";
    std::string settings;
    RuleOptions rule;
    CoverageChoice coverage{};

    bool holds(const char* section) const {
        return std::find(sections.begin(), sections.end(), section) != sections.end();
    }
    /// Raises RowFault where the reading has a unit that cannot be.
    ReportSelection selection(const Analysis& record) const {
        ReportSelection selection;
        selection.Report_IncludeRisk = holds("risk");
        selection.Report_IncludePlots = holds("plots");
        selection.Report_IncludeUncertainty = holds("uncertainty");
        selection.Report_IncludeErrorPlot = holds("error");
        selection.Report_IncludeDecision = holds("decision");
        if (const auto measured = nominalReading(record))
            selection.Report_Decision = {*measured, rule.rule, rule.prior, coverage};
        selection.Report_FontName = font;
        return selection;
    }
    PageSetup page() const { return equalCaseBlind(paper, "a4") ? PageSetup::a4() : PageSetup{}; }
};

/// What is wrong with options that are each right.
std::string faultOf(const Options& options) {
    if (options.holds("decision") && !options.reading) return "the section decision needs a --reading";
    if (!options.holds("decision") && options.reading) return "--reading goes with the section decision";
    if (const std::string fault = options.readingFault(); !fault.empty()) return fault;
    return options.rule.fault();
}

std::optional<std::string> compose(AnalysisRun& run, const std::string& target, const Options& options) {
    if (options.organization) {
        run.record.Organization = withoutQuotes(std::string(firstCharacters(*options.organization, 60)));
        run.record.IncludeOrganization = true;
    }
    const bool allowed = withReason(run, "no report", [&] { return haveData(run.session, Needs::Both); });
    if (!allowed) return std::nullopt;
    const std::string name = target == standardStream ? "report." + options.format : target;
    try {
        return reportBytes(run.session, options.selection(run.record), options.page(), name, CairoPress());
    } catch (const RowFault& fault) {
        run.ui.note("Reading: " + fault.text);
        return std::nullopt;
    }
}

int reportAll(Options& options) {
    options.targets.end = "." + options.format;
    const std::string& path = options.targets.path;
    if (!path.empty() && path != standardStream && reportFormatOf(path) == ReportFormat::None)
        return finish(refusal(path, "The Report Type is not registered.", wrongUsage, options.targets.json));
    Workplace workplace(options.settings);
    if (options.font.empty()) options.font = workplace.settings.read(reportSettings::defaultFont);
    return options.targets.run("report", workplace, [&](AnalysisRun& run, const std::string& target) {
        return compose(run, target, options);
    });
}

} // namespace

void addReport(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("report", "Write reports of analysis files as PDF, Rich Text or HTML");
    options->targets.addTo(command, "OUT.pdf|doc|htm");
    command.text("--format", options->format, "With --out-dir or -o -: pdf (the default), doc or htm")
        .shownAs("FORMAT")
        .oneOf({"pdf", "doc", "htm"});
    command
        .texts("--sections", options->sections,
               "Any of risk (the default), plots, uncertainty, error, decision, with commas between")
        .shownAs("LIST")
        .separatedBy(',')
        .oneEach()
        .oneOf({"risk", "plots", "uncertainty", "error", "decision"});
    options->ReadingOption::addTo(
        command, "Of the section decision: measured value, in nominal units or with its unit");
    options->rule.addTo(command);
    addCoverageOption(command, options->coverage);
    command.text("--font", options->font, "Font family of the texts").shownAs("NAME");
    command.text("--organization", options->organization, "Organization at the head of the report")
        .shownAs("NAME");
    command.text("--paper", options->paper, "a4 (the default) or letter")
        .shownAs("SIZE")
        .oneOfAnyCase({"a4", "letter"});
    addSettingsOption(command, options->settings);
    command.examples(
        {"report torque-wrench-50nm.mrk -o report.pdf",
         "report --sections risk,plots thermometer-process-uncertainty.mrk -o report.htm",
         "report --sections decision --reading 10.00035 --rule w=U multimeter-dc-volts.mrk -o reading.pdf",
         "report --out-dir . --format doc *.mrk"});
    command.then([options, &chosen] {
        if (const std::string fault = faultOf(*options); !fault.empty()) throw WrongUsage(fault);
        options->targets.list.check();
        chosen = [options] {
            options->targets.list.read();
            return reportAll(*options);
        };
    });
}

} // namespace metrisk::cli
