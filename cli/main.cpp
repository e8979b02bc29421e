// The command-line program: the same core as the window, for batches and scripts.
#include "cli/Commands.h"
#include "cli/Output.h"
#include "persistence/AtomicFile.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

namespace {

using namespace metrisk::cli;

constexpr const char* about =
    "A name that begins with a dash goes behind --, as in: metrisk-cli compute -- -name.mrk\n"
    "Exit status: 0 all computed, 1 at least one refused, 2 wrong usage, 3 at least one unreadable.";

/// What the library says, and what it does not: which word is no command, and how to name a file that
/// looks like an option.
std::string failureText(const CLI::App* app, const CLI::Error& error) {
    const std::vector<std::string> unknown = app->remaining(true);
    if (app->get_subcommands().empty() && !unknown.empty() && !unknown[0].starts_with('-'))
        return printable(unknown[0]) + " is no command of metrisk-cli; --help lists them.\n";
    std::string text = CLI::FailureMessage::simple(app, error);
    for (const std::string& word : unknown)
        if (word.starts_with('-')) return text + "If " + printable(word) + " is a file, put -- before it.\n";
    return text;
}

/// Raises what the parsing and the command raise.
int run(int argc, char** argv) {
    CLI::App program("Measurement decision risk analysis", "metrisk-cli");
    program.set_version_flag("--version", "metrisk-cli " METRISK_VERSION, "Print the version and exit");
    program.require_subcommand(1);
    program.footer(about);
    program.failure_message(failureText);
    Command chosen;
    for (const auto add : {addCompute, addConvert, addShow, addBaseline, addGuardband, addObserved,
                           addReliability, addUncertainty, addOffset, addUnits, addPlot, addSweep, addMap,
                           addReport, addSummary, addVerify, addInfo})
        add(program, chosen);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? allDone : wrongUsage;
    }
    return chosen();
}

} // namespace

int main(int argc, char** argv) {
    metrisk::removeTemporariesOnSignals();
    try {
        return run(argc, argv);
    } catch (const std::exception& fault) { // memory, or the system
        std::fprintf(stderr, "metrisk-cli: %s\n", fault.what());
        return refused;
    }
}
