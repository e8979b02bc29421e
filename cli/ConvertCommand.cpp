// metrisk-cli convert: any version of analysis file to the present one, and to JSON and back.
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/OutputFile.h"
#include "desk/files/AnalysisFile.h"
#include "persistence/AnalysisName.h"
#include "unattended/AnalysisJson.h"
#include "unattended/Input.h"

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

constexpr std::size_t largestJson = std::size_t{1} << 26; // bytes

bool isJsonName(const std::string& path) {
    return equalCaseBlind(fs::path(path).extension().string(), ".json");
}

/// In a folder, under the name of the file that is read. A name that ends in .json gets JSON.
std::string targetOf(const Options& options) {
    std::error_code none;
    if (options.out == standardStream) return options.out;
    if (!fs::is_directory(options.out, none))
        return isJsonName(options.out) ? options.out : NormalizeAnalysisName(options.out);
    fs::path name = fs::path(options.in).filename();
    if (isJsonName(options.in)) name.replace_extension();
    return (fs::path(options.out) / NormalizeAnalysisName(name.string())).lexically_normal().string();
}

bool isJson(const Options& options, std::string& content) {
    if (options.in != standardStream && !isJsonName(options.in)) return false;
    content = readInput(options.in, largestJson);
    return looksLikeJson(content);
}

/// From a file of any kind, or from what was read to learn which.
bool openAny(AnalysisRun& run, const Options& options) {
    try {
        std::string content;
        if (isJson(options, content)) {
            // What a table or a program leaves out is the same on every machine.
            run.record =
                options.settings.empty() ? Workplace(SettingsContent{}).newAnalysis : run.newAnalysis();
            return takeJson(run, content);
        }
        if (options.in == standardStream) return run.openText(std::move(content), options.in);
    } catch (const Unreadable& fault) {
        run.ui.note(fault.what());
        return false;
    }
    return run.open(options.in);
}

int convert(const Options& options) {
    const std::string target = targetOf(options);
    if (const std::string fault = targetFault(target, options.force, {options.in}); !fault.empty())
        return finish(refusal(options.in, fault, wrongUsage, options.json));
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    Output output;
    output.status = unreadable;
    if (openAny(run, options)) {
        const std::string bytes =
            isJsonName(target) ? jsonLine(analysisJson(options.in, run)) : AnalysisText(run.record);
        const bool written = writeTarget(target, options.force, bytes, run.ui, output);
        if (written && target != options.out) run.ui.note("saved as " + target);
        output.status = written ? allDone : refused;
    }
    output.diagnostics = diagnosticLines(options.in, run.ui.messages());
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
    const Arguments command = program.command(
        "convert", "Write any version of analysis file, or its JSON, as the present one or as JSON");
    command
        .text("IN", options->in, "File to read; JSON, as show --json prints it, where the name ends in .json")
        .shownAs(" ")
        .isPath()
        .required();
    command
        .text("OUT", options->out,
              "File to write: JSON where the name ends in .json, else .mrk is added if missing; or a folder")
        .shownAs(" ")
        .isPath()
        .required();
    addForceOption(command, options->force);
    command.flag("--json", options->json, "Print one JSON object");
    addSettingsOption(command, options->settings);
    command.examples({"convert torque-wrench-50nm.mrk copy.mrk",
                      "convert - - <torque-wrench-50nm.mrk >other.mrk",
                      "convert torque-wrench-50nm.mrk wrench.json"});
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
