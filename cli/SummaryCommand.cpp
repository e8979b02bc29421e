// metrisk-cli summary: analyses and their results as tables for spreadsheets.
#include "cli/AnalysisRun.h"
#include "cli/BatchTargets.h"
#include "cli/Commands.h"
#include "persistence/Summary.h"

namespace metrisk::cli {

namespace {

struct Options {
    BatchTargets targets;
    std::string settings;
};

Output summarise(Workplace& workplace, const std::string& file, const std::string& target) {
    AnalysisRun run(workplace);
    int status = unreadable;
    if (run.open(file))
        status = summaryAllowed(run.session) && WriteSummary(run.session, target) ? allDone : refused;
    return {.diagnostics = run.diagnostics(file), .status = status};
}

int summariseAll(const Options& options) {
    Workplace workplace(options.settings);
    return options.targets.run("summary", [&](const std::string& file, const std::string& target) {
        return summarise(workplace, file, target);
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
    command.then([options, &chosen] { chosen = [options] { return summariseAll(*options); }; });
}

} // namespace metrisk::cli
