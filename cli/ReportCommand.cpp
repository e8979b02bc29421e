// metrisk-cli report: the report of an analysis as a file, or of many analyses as many files.
#include "base/Text.h"
#include "cli/BatchTargets.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/ReadingOption.h"
#include "cli/RuleOptions.h"
#include "desk/files/ReportFiles.h"
#include "persistence/SettingKeys.h"
#include "unattended/AnalysisReport.h"
#include "unattended/Input.h"

namespace metrisk::cli {

namespace {

struct Options : ReadingOption {
    BatchTargets targets;
    std::string format = "pdf";
    std::string paper = "a4";
    std::string settings;
    RuleOptions rule;
    ReportRequest request{.font = ""};

    void settle(const Workplace& workplace) {
        request.reading = reading;
        request.rule = rule.rule;
        request.prior = rule.prior;
        if (!equalCaseBlind(paper, "a4")) request.page = PageSetup{};
        if (request.font.empty()) request.font = workplace.settings.read(reportSettings::defaultFont);
    }
};

/// What is wrong with options that are each right.
std::string faultOf(const Options& options) {
    if (options.request.holds("decision") && !options.reading)
        return "the section decision needs a --reading";
    if (!options.request.holds("decision") && options.reading)
        return "--reading goes with the section decision";
    if (const std::string fault = options.readingFault(); !fault.empty()) return fault;
    return options.rule.fault();
}

int reportAll(Options& options) {
    options.targets.end = "." + options.format;
    const std::string& path = options.targets.path;
    if (!path.empty() && path != standardStream && reportFormatOf(path) == ReportFormat::None)
        return finish(refusal(path, "The Report Type is not registered.", wrongUsage, options.targets.json));
    Workplace workplace(options.settings);
    options.settle(workplace);
    return options.targets.run("report", workplace, [&](AnalysisRun& run, const std::string& target) {
        return composeReport(run, target == standardStream ? "report." + options.format : target,
                             options.request);
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
        .texts("--sections", options->request.sections,
               "Any of risk (the default), plots, uncertainty, error, decision, with commas between")
        .shownAs("LIST")
        .separatedBy(',')
        .oneEach()
        .oneOf({"risk", "plots", "uncertainty", "error", "decision"});
    options->ReadingOption::addTo(
        command, "Of the section decision: measured value, in nominal units or with its unit");
    options->rule.addTo(command);
    addCoverageOption(command, options->request.coverage);
    command.text("--font", options->request.font, "Font family of the texts").shownAs("NAME");
    command.text("--organization", options->request.organization, "Organization at the head of the report")
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
