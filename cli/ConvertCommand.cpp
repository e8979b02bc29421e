// metrisk-cli convert: any version of analysis file to the present one.
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "persistence/AnalysisFile.h"

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

void addConvert(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("convert", "Read any version of analysis file and write the present one");
    command.text("IN", options->in, "File to read").shownAs(" ").required();
    command.text("OUT", options->out, "File to write; .mrk is added if missing")
        .shownAs(" ")
        .required()
        .check(namesAFile);
    command.flag("--force", options->force, "Replace an existing file");
    addSettingsOption(command, options->settings);
    command.then([options, &chosen] { chosen = [options] { return convert(*options); }; });
}

} // namespace metrisk::cli
