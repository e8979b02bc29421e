// metrisk-cli convert: any version of analysis file to the present one.
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/OutputFile.h"
#include "desk/files/AnalysisFile.h"
#include "persistence/AnalysisName.h"

#include <filesystem>

namespace metrisk::cli {

namespace {

namespace fs = std::filesystem;

struct Options {
    std::string in;
    std::string out;
    std::string settings;
    bool force = false;
    bool json = false;
};

/// In a folder, under the name of the file that is read.
std::string targetOf(const Options& options) {
    std::error_code none;
    if (options.out == standardStream) return options.out;
    if (!fs::is_directory(options.out, none)) return NormalizeAnalysisName(options.out);
    const fs::path name = fs::path(options.in).filename();
    return (fs::path(options.out) / NormalizeAnalysisName(name.string())).lexically_normal().string();
}

int convert(const Options& options) {
    const std::string target = targetOf(options);
    if (const std::string fault = targetFault(target, options.force, {options.in}); !fault.empty())
        return finish(refusal(options.in, fault, wrongUsage, options.json));
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    Output output;
    output.status = unreadable;
    if (run.open(options.in)) {
        const bool written = writeTarget(target, options.force, AnalysisText(run.record), run.ui, output);
        if (written && target != options.out) run.ui.note("saved as " + target);
        output.status = written ? allDone : refused;
    }
    output.diagnostics = run.diagnostics(options.in);
    if (options.json) {
        Json object = run.result(options.in, statusWord(output.status, "written"));
        object["output"] = output.status == allDone ? Json(target) : Json();
        output.results = jsonLine(object);
    }
    return finish(output);
}

} // namespace

void addConvert(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("convert", "Read any version of analysis file and write the present one");
    command.text("IN", options->in, "File to read").shownAs(" ").isPath().required();
    command.text("OUT", options->out, "File to write, or a folder; .mrk is added if missing")
        .shownAs(" ")
        .isPath()
        .required();
    addForceOption(command, options->force);
    command.flag("--json", options->json, "Print one JSON object");
    addSettingsOption(command, options->settings);
    command.examples(
        {"convert torque-wrench-50nm.mrk copy.mrk", "convert - - <torque-wrench-50nm.mrk >other.mrk"});
    command.then([options, &chosen] {
        std::error_code none;
        const bool named = !fs::path(options->out).filename().empty() || fs::is_directory(options->out, none);
        if (!named || (options->in == standardStream && fs::is_directory(options->out, none)))
            throw WrongUsage("OUT: a file name is needed");
        if (options->out == standardStream && options->json)
            throw WrongUsage("OUT - and --json both take the standard output");
        chosen = [options] { return convert(*options); };
    });
}

} // namespace metrisk::cli
