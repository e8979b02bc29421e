// metrisk-cli summary: analyses and their results as tables for spreadsheets.
#include "cli/BatchTargets.h"
#include "cli/Commands.h"
#include "desk/files/Summary.h"
#include "unattended/AnalysisRun.h"

namespace metrisk::cli {

namespace {

struct Options {
    BatchTargets targets;
    std::string settings;
};

int summariseAll(const Options& options) {
    Workplace workplace(options.settings);
    return options.targets.run(
        "summary", workplace, [](AnalysisRun& run, const std::string&) -> std::optional<std::string> {
            const bool allowed = withReason(run, "no summary", [&] { return summaryAllowed(run.session); });
            return allowed ? std::optional(summaryText(run.session)) : std::nullopt;
        });
}

} // namespace

void addSummary(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("summary", "Write an analysis and its results as a table for a spreadsheet");
    options->targets.end = ".sum";
    options->targets.addTo(command, "OUT.sum");
    addSettingsOption(command, options->settings);
    command.examples({"summary torque-wrench-50nm.mrk -o wrench.sum", "summary --out-dir . *.mrk"});
    command.then([options, &chosen] {
        options->targets.list.check();
        chosen = [options] {
            options->targets.list.read();
            return summariseAll(*options);
        };
    });
}

} // namespace metrisk::cli
