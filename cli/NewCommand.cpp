// metrisk-cli new: an analysis from entries, without a window.
#include "cli/Commands.h"
#include "cli/EntryOptions.h"
#include "cli/Output.h"
#include "cli/OutputFile.h"
#include "desk/files/AnalysisFile.h"
#include "persistence/AnalysisName.h"
#include "record/AnalysisFields.h"
#include "unattended/AnalysisRun.h"
#include "unattended/ComputedFigures.h"
#include "unattended/Input.h"

namespace metrisk::cli {

namespace {

struct Options {
    std::string out;
    std::string templateFile;
    std::string settings;
    EntryOptions entries;
    std::vector<std::string> set;
    bool compute = false;
    bool force = false;
    bool json = false;
};

/// A template gives its entries alone.
void dropResults(Analysis& record) {
    const Analysis fresh;
    eachField([&](const Field& field, auto member) {
        if (field.source == Source::Result) record.*member = fresh.*member;
    });
}

int make(const Options& options) {
    const std::string target =
        options.out == standardStream ? options.out : NormalizeAnalysisName(options.out);
    if (const std::string fault = targetFault(target, options.force, {options.templateFile}); !fault.empty())
        return finish(refusal(options.out, fault, wrongUsage, options.json));
    Workplace workplace(options.settings.empty() ? Workplace(SettingsContent{})
                                                 : Workplace(options.settings));
    const UnitFactors units = options.entries.unitFactors();
    AnalysisRun run(workplace);
    run.record = workplace.newAnalysis;
    Output output;
    const bool read = options.templateFile.empty() || run.open(options.templateFile);
    dropResults(run.record);
    if (!read)
        output.status = unreadable;
    else if (!options.entries.putInto(run, units) || (options.compute && !computeAfresh(run)) ||
             !writeTarget(target, options.force, AnalysisText(run.record), run.ui, output))
        output.status = refused;
    output.diagnostics = diagnosticLines(options.out, run.ui.messages());
    if (options.json) output.results = jsonLine(run.result(target, statusWord(output.status, "written")));
    return finish(output);
}

} // namespace

void addNew(const Arguments& program, Command& chosen) {
    const auto o = std::make_shared<Options>();
    const Arguments command = program.command("new", "Make an analysis file from entries");
    command.text("OUT", o->out, "File to write; .mrk is added if missing").shownAs(" ").isPath().required();
    command.texts("--set", o->set, "Field of the record, as in SU_Description=DMM; rows --columns lists them")
        .shownAs("Field=VALUE")
        .oneEach();
    o->entries.addTo(command);
    command.text("--template", o->templateFile, "Analysis that fills what is not named")
        .shownAs("FILE")
        .isPath();
    command.flag("--compute", o->compute, "Compute, and store the figures");
    addForceOption(command, o->force);
    command.flag("--json", o->json, "Print one JSON object");
    addSettingsOption(command, o->settings);
    command.examples(
        {"new dmm.mrk --nominal 10V --tol 0.5mV --su-pct 95 --mte-expanded 0.1mV --mte-k 2 --compute",
         "new named.mrk --nominal 10V --tol 1% --su-pct 19/20 --tur 4:1 --set SU_ModelNumber=M-1 --compute",
         "new guarded.mrk --template torque-wrench-50nm.mrk --gb 0.9 --compute"});
    command.then([o, &chosen] {
        if (o->out == standardStream && o->json)
            throw WrongUsage("OUT - and --json both take the standard output");
        for (const std::string& text : o->set) o->entries.assign(text);
        if (const std::string fault = o->entries.wrong(); !fault.empty()) throw WrongUsage(fault);
        chosen = [o] { return make(*o); };
    });
}

} // namespace metrisk::cli
