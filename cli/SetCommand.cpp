// metrisk-cli set: entries and fields of analysis files, changed without a window.
#include "cli/Commands.h"
#include "cli/EntryOptions.h"
#include "cli/OrderedBatch.h"
#include "cli/Output.h"
#include "cli/OutputFile.h"
#include "desk/files/AnalysisFile.h"
#include "persistence/AnalysisName.h"
#include "risk/evaluate/CurrentFigures.h"
#include "unattended/AnalysisRun.h"
#include "unattended/ComputedFigures.h"
#include "unattended/Input.h"

#include <exception>
#include <filesystem>

namespace metrisk::cli {

namespace {

struct Options {
    std::vector<std::string> words; // files and assignments
    std::vector<std::string> files;
    std::string out;
    std::string settings;
    EntryOptions entries;
    bool compute = false;
    bool force = false;
    bool json = false;
};

/// What is both, a file there is.
void sortWords(Options& o) {
    std::error_code none;
    for (const std::string& word : o.words)
        if (looksAssigned(word) && !std::filesystem::exists(word, none))
            o.entries.assign(word);
        else
            o.files.push_back(word);
}

bool write(AnalysisRun& run, const std::string& file, const Options& o, Output& output) {
    if (o.out.empty()) return saveResults(run, file, o.force);
    const std::string target = o.out == standardStream ? o.out : NormalizeAnalysisName(o.out);
    dropStaleFigures(run.record, run.session.regional);
    return writeTarget(target, o.force, AnalysisText(run.record), run.ui, output);
}

Output setOne(Workplace& workplace, const std::string& file, const Options& o, const UnitFactors& units) {
    AnalysisRun run(workplace);
    Output output{.status = unreadable};
    try {
        if (run.open(file)) {
            const bool done = o.entries.putInto(run, units) && (!o.compute || computeAfresh(run)) &&
                              write(run, file, o, output);
            output.status = done ? allDone : refused;
        }
    } catch (const std::exception& fault) { // memory: the files behind it may need less
        run.ui.note(faultText(fault));
        output.status = refused;
    }
    output.diagnostics = diagnosticLines(file, run.ui.messages());
    if (o.json) output.results = jsonLine(run.result(file, statusWord(output.status, "written")));
    return output;
}

int setAll(const Options& o) {
    if (!o.out.empty() && o.out != standardStream)
        if (const std::string fault = targetFault(NormalizeAnalysisName(o.out), o.force, o.files);
            !fault.empty())
            return finish(refusal(o.out, fault, wrongUsage, o.json));
    Workplace workplace(o.settings.empty() ? Workplace(SettingsContent{}) : Workplace(o.settings));
    const UnitFactors units = o.entries.unitFactors();
    Outlet outlet(o.files.size());
    runOrdered(
        o.files.size(), threadsFor(0, true),
        [&](std::size_t i) { return setOne(workplace, o.files[i], o, units); },
        [&](const Output& output) { outlet.put(output); });
    return outlet.status();
}

void checkUsage(const Options& o) {
    if (o.files.empty()) throw WrongUsage("FILE is required");
    if (!o.entries.any() && !o.compute) throw WrongUsage("an entry or Field=VALUE is required");
    if (!o.out.empty() && o.files.size() > 1) throw WrongUsage("-o takes one file");
    if (o.out == standardStream && o.json) throw WrongUsage("-o - and --json both take the standard output");
    if (const std::string fault = o.entries.wrong(); !fault.empty()) throw WrongUsage(fault);
}

} // namespace

void addSet(const Arguments& program, Command& chosen) {
    const auto o = std::make_shared<Options>();
    const Arguments command = program.command("set", "Change entries and fields of analysis files");
    command
        .texts("FILE", o->words,
               "Analysis files and, as Field=VALUE, fields; each file gets all changes or none")
        .shownAs("... [Field=VALUE]...")
        .isPath()
        .required();
    o->entries.addTo(command);
    command.text("-o,--output", o->out, "File to write in place of the one that is read")
        .shownAs("OUT")
        .isPath();
    command.flag("--compute", o->compute, "Compute, and store the figures");
    command.flag("--force", o->force, "Replace an existing OUT, or an existing .mrk beside a .dat file");
    command.flag("--json", o->json, "Print one JSON object per file, each on one line");
    addSettingsOption(command, o->settings);
    command.examples({"set torque-wrench-50nm.mrk --su-pct 90% --compute",
                      "set gauge-block-25mm.mrk SU_Description=Block 'Rel_BOP[1]=0.98' -o block.mrk",
                      "set torque-wrench-50nm.mrk gauge-block-25mm.mrk --convention producer --compute"});
    command.then([o, &chosen] {
        sortWords(*o);
        checkUsage(*o);
        chosen = [o] { return setAll(*o); };
    });
}

} // namespace metrisk::cli
