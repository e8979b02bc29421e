// metrisk-cli summary: analyses and their results as tables for spreadsheets.
#include "cli/AnalysisRun.h"
#include "cli/BatchTargets.h"
#include "cli/Commands.h"
#include "cli/OrderedBatch.h"
#include "persistence/Summary.h"

#include <CLI/CLI.hpp>

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
    const BatchTargets& targets = options.targets;
    if (const std::string wrong = targets.wrong(); !wrong.empty())
        return finish({.diagnostics = diagnosticLine("summary", wrong), .status = wrongUsage});
    Workplace workplace(options.settings);
    Outlet outlet(targets.files.size());
    runOrdered(
        targets.files.size(), targets.threads,
        [&](std::size_t i) -> Output {
            try {
                return summarise(workplace, targets.files[i], targets.target(i));
            } catch (const std::exception& fault) { // memory: the files behind it may need less
                return {.diagnostics = diagnosticLine(targets.files[i], fault.what()), .status = refused};
            }
        },
        [&](const Output& output) { outlet.put(output); });
    return outlet.status();
}

} // namespace

void addSummary(CLI::App& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        program.add_subcommand("summary", "Write an analysis and its results as a table for a spreadsheet");
    options->targets.addTo(*command, ".sum");
    addSettingsOption(*command, options->settings);
    command->callback([options, &chosen] { chosen = [options] { return summariseAll(*options); }; });
}

} // namespace metrisk::cli
