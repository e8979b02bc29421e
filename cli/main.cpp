// The command-line program: the same core as the window, for batches and scripts.
#include "cli/Commands.h"
#include "cli/Output.h"

#include <CLI/CLI.hpp>

namespace {

using namespace metrisk::cli;

/// Describes the options; the chosen command's runner ends up in `command`.
void describe(CLI::App& app, std::function<int()>& command) {
    static constexpr const char* settingsHelp = "Settings file to use instead of your own";
    static constexpr const char* forceHelp = "Replace an existing file";
    static constexpr const char* jsonHelp = "Print JSON instead of text";

    const auto compute = std::make_shared<ComputeOptions>();
    CLI::App* computeApp =
        app.add_subcommand("compute", "Compute risks and equivalent accuracy ratio of analysis files");
    computeApp->add_option("FILE", compute->files, "Analysis files")->required();
    computeApp->add_flag("--json", compute->json, "Print one JSON object per file, each on one line");
    computeApp->add_flag("--save", compute->save, "Write the results back to each file");
    computeApp->add_flag("--force", compute->force,
                         "With --save: replace an existing .mrk beside a .dat file");
    computeApp->add_option("--settings", compute->settings, settingsHelp);
    computeApp->add_option("--threads", compute->threads, "Threads to use; 0 means one a core");
    computeApp->callback([compute, &command] { command = [compute] { return computeCommand(*compute); }; });

    const auto convert = std::make_shared<ConvertOptions>();
    CLI::App* convertApp =
        app.add_subcommand("convert", "Read any version of analysis file and write the present one");
    convertApp->add_option("IN", convert->in, "File to read")->required();
    convertApp->add_option("OUT", convert->out, "File to write; .mrk is added if missing")->required();
    convertApp->add_flag("--force", convert->force, forceHelp);
    convertApp->add_option("--settings", convert->settings, settingsHelp);
    convertApp->callback([convert, &command] { command = [convert] { return convertCommand(*convert); }; });

    const auto show = std::make_shared<ShowOptions>();
    CLI::App* showApp = app.add_subcommand("show", "Print every field of an analysis by name");
    showApp->add_option("FILE", show->file, "Analysis file")->required();
    showApp->add_flag("--json", show->json, jsonHelp);
    showApp->add_option("--settings", show->settings, settingsHelp);
    showApp->callback([show, &command] { command = [show] { return showCommand(*show); }; });

    const auto baseline = std::make_shared<BaselineOptions>();
    CLI::App* baselineApp = app.add_subcommand("baseline", "Compute the risks of a reference case");
    baselineApp->add_option("--ratio", baseline->ratio, "Accuracy ratio, as in 4:1")->required();
    baselineApp->add_option("--mte", baseline->measuringPct, "Measuring parameter % in-tolerance")
        ->required();
    baselineApp->add_option("--su", baseline->subjectPct, "Subject parameter % in-tolerance")->required();
    baselineApp->add_flag("--producer", baseline->producer,
                          "Producer's false accept risk instead of the Consumer's");
    baselineApp->add_flag("--json", baseline->json, jsonHelp);
    baselineApp->callback(
        [baseline, &command] { command = [baseline] { return baselineCommand(*baseline); }; });
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Measurement decision risk analysis", "metrisk-cli");
    app.set_version_flag("--version", "metrisk-cli " METRISK_VERSION);
    app.require_subcommand(1);
    app.footer(
        "Exit status: 0 all computed, 1 at least one refused, 2 wrong usage, 3 at least one unreadable.");
    std::function<int()> command;
    describe(app, command);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? allDone : wrongUsage;
    }
    return command();
}
