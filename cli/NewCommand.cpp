// metrisk-cli new: an analysis from entries, without a window.
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/OutputFile.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/files/AnalysisFile.h"
#include "persistence/AnalysisName.h"
#include "rows/PointRecord.h"
#include "rows/UnitFactors.h"
#include "units/database/UnitsDatabase.h"

#include <array>

namespace metrisk::cli {

namespace {

struct Options {
    std::string out;
    std::string templateFile;
    std::string settings;
    std::string units;
    std::array<std::optional<std::string>, entryCount> entries{};
    bool compute = false;
    bool force = false;
    bool json = false;
};

/// Those that are no entry of an analysis, but of a decision on it.
bool isOfAnalysis(Entry entry) {
    return entry != Entry::Reading && entry != Entry::Rule;
}

std::string optionOf(const EntryInfo& info) {
    std::string name = "--" + std::string(info.name);
    for (char& c : name)
        if (c == '_') c = '-';
    return name;
}

UnitFactors unitsOf(const Options& options) {
    if (options.units.empty()) return {};
    try {
        return UnitFactors(openUnitsDatabase(options.units)->content());
    } catch (const UnitsError& fault) {
        throw Unreadable(options.units, fault.what());
    }
}

/// False where they are refused or cannot be read, which has been told.
bool takeEntries(AnalysisRun& run, const Options& options) {
    NamedEntries named;
    std::string notes;
    try {
        for (const EntryInfo& info : entryTable())
            if (const auto& text = options.entries[static_cast<std::size_t>(info.entry)])
                named.read(info.entry, *text);
        // The point's texts are those of the record that it is put into.
        const Analysis before = run.record;
        TestPoint point = testPointOf(before, run.session.regional);
        putEntries(point, named, unitsOf(options), CountsAs::Estimate, notes);
        putIntoRecord(run.record, point, named);
    } catch (const RowFault& fault) {
        run.ui.note(fault.text);
        return false;
    }
    if (!notes.empty()) run.ui.note(notes);
    return true;
}

bool computed(AnalysisRun& run) {
    return withReason(run, "no finite risk", [&] {
        run.record.RisksNeedCompute = true;
        ComputeResults_Click(run.session);
        return static_cast<bool>(run.record.RisksComputed);
    });
}

int make(const Options& options) {
    const std::string target =
        options.out == standardStream ? options.out : NormalizeAnalysisName(options.out);
    if (const std::string fault = targetFault(target, options.force, {options.templateFile}); !fault.empty())
        return finish(refusal(options.out, fault, wrongUsage, options.json));
    Workplace workplace(options.settings.empty() ? Workplace(SettingsContent{})
                                                 : Workplace(options.settings));
    AnalysisRun run(workplace);
    run.record = workplace.newAnalysis;
    Output output;
    if (!options.templateFile.empty() && !run.open(options.templateFile))
        output.status = unreadable;
    else if (!takeEntries(run, options) || (options.compute && !computed(run)) ||
             !writeTarget(target, options.force, AnalysisText(run.record), run.ui, output))
        output.status = refused;
    output.diagnostics = run.diagnostics(options.out);
    if (options.json) output.results = jsonLine(run.result(target, statusWord(output.status, "written")));
    return finish(output);
}

} // namespace

void addNew(const Arguments& program, Command& chosen) {
    const auto o = std::make_shared<Options>();
    const Arguments command = program.command("new", "Make an analysis file from entries");
    command.text("OUT", o->out, "File to write; .mrk is added if missing").shownAs(" ").isPath().required();
    for (const EntryInfo& info : entryTable())
        if (isOfAnalysis(info.entry))
            command
                .text(optionOf(info).c_str(), o->entries[static_cast<std::size_t>(info.entry)],
                      std::string(info.about).c_str())
                .shownAs("VALUE")
                .under("Entries");
    command.text("--template", o->templateFile, "Analysis that fills what is not named")
        .shownAs("FILE")
        .isPath();
    command.flag("--compute", o->compute, "Compute, and store the figures");
    addForceOption(command, o->force);
    command.flag("--json", o->json, "Print one JSON object");
    command.text("--units", o->units, "Units database; otherwise the units of the program")
        .shownAs("FILE")
        .isPath();
    addSettingsOption(command, o->settings);
    command.examples(
        {"new dmm.mrk --nominal 10V --tol 0.5mV --su-pct 95 --mte-expanded 0.1mV --mte-k 2 --compute",
         "new guarded.mrk --template torque-wrench-50nm.mrk --gb 0.9 --compute"});
    command.then([o, &chosen] {
        if (o->out == standardStream && o->json)
            throw WrongUsage("OUT - and --json both take the standard output");
        chosen = [o] { return make(*o); };
    });
}

} // namespace metrisk::cli
