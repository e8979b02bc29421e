// The command-line program: the same core as the window, for batches and scripts.
#include "base/AtomicFile.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "unattended/Input.h"
#include "unattended/Json.h"

#include <csignal>
#include <cstdio>
#include <exception>

namespace {

using namespace metrisk::cli;

constexpr const char* about =
    "metrisk-cli help COMMAND tells about a command. The name - stands for the standard input or output; a "
    "name "
    "that\n"
    "begins with a dash goes behind --, as in: metrisk-cli compute -- -name.mrk\n"
    "Exit status: 0 all computed, 1 at least one refused, 2 wrong usage, 3 at least one unreadable.";

/// Raises what the parsing and the command raise.
int run(int argc, char** argv) {
    Program program("metrisk-cli", "Measurement decision risk analysis", "metrisk-cli " METRISK_VERSION,
                    about);
    Command chosen;
    for (const auto add :
         {addCompute,     addConvert, addShow,       addBaseline,  addGuardband, addObserved, addReliability,
          addUncertainty, addOffset,  addUnits,      addPlot,      addSweep,     addMap,      addDecide,
          addWorst,       addCounts,  addStrategies, addOffCentre, addRows,      addNew,      addSet,
          addAudit,       addReport,  addSummary,    addVerify,    addInfo})
        add(program.arguments(), chosen);
    if (const auto ended = program.read(argc, argv)) return *ended;
    try {
        return chosen();
    } catch (const metrisk::Unreadable& fault) {
        const std::string text = std::string("cannot be read: ") + fault.what();
        return finish(refusal(fault.file, text, unreadable, program.given("--json")));
    } catch (const std::exception& fault) { // memory, or the system
        return finish(refusal("", "metrisk-cli: " + faultText(fault), refused, program.given("--json")));
    }
}

} // namespace

int main(int argc, char** argv) {
    metrisk::removeTemporariesOnSignals();
    std::signal(SIGXFSZ, SIG_IGN); // a file that grows too large is told as any other that cannot be written
    try {
        return run(argc, argv);
    } catch (const std::exception& fault) { // memory, or the system
        std::fprintf(stderr, "metrisk-cli: %s\n", faultText(fault).c_str());
        return refused;
    }
}
