// metrisk-cli convert: any version of analysis file to the present one.
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "persistence/AnalysisFile.h"

#include <CLI/CLI.hpp>
#include <filesystem>

namespace metrisk::cli {

namespace {

struct Options {
    std::string in;
    std::string out;
    std::string settings;
    bool force = false;
};

int convert(const Options& options) {
    const std::string target = NormalizeAnalysisName(options.out);
    std::error_code none;
    if (!options.force && std::filesystem::exists(target, none))
        return finish({.diagnostics = diagnosticLine(target, "exists; use --force to replace it"),
                       .status = wrongUsage});
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    Output output;
    if (!run.open(options.in))
        output.status = unreadable;
    else if (!run.save(options.out))
        output.status = refused;
    output.diagnostics = run.diagnostics(options.in);
    return finish(output);
}

std::string namesAFile(const std::string& path) {
    return std::filesystem::path(path).filename().empty() ? "a file name is needed" : "";
}

} // namespace

void addConvert(CLI::App& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        program.add_subcommand("convert", "Read any version of analysis file and write the present one");
    command->add_option("IN", options->in, "File to read")->option_text(" ")->required();
    command->add_option("OUT", options->out, "File to write; .mrk is added if missing")
        ->option_text(" ")
        ->required()
        ->check(namesAFile);
    command->add_flag("--force", options->force, "Replace an existing file");
    addSettingsOption(*command, options->settings);
    command->callback([options, &chosen] { chosen = [options] { return convert(*options); }; });
}

} // namespace metrisk::cli
