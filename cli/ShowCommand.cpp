// metrisk-cli show: every field of an analysis by its name.
#include "base/NumberText.h"
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/Json.h"
#include "desk/compute/FitMeasuring.h"
#include "record/AnalysisFields.h"
#include "uncertainty/ErrorTable.h"

namespace metrisk::cli {

namespace {

struct Options {
    std::string file;
    std::string settings;
    bool json = false;
};

std::string fieldText(const std::string& text) {
    return "\"" + forResults(text) + "\"";
}
std::string fieldText(double number) {
    return GeneralText(number, {});
}
std::string fieldText(int number) {
    return std::to_string(number);
}
std::string fieldText(Flag flag) {
    return flag ? "True" : "False";
}
std::string fieldText(bool flag) {
    return flag ? "True" : "False";
}

template <class Value>
std::string lines(const std::string& name, const Value& value) {
    if constexpr (requires { fieldText(value); }) {
        return name + " = " + fieldText(value) + "\n";
    } else {
        // Elements are numbered as the record numbers them: from 1, the two reliability slots from 0.
        int index = 1;
        if constexpr (!requires { Value::first; }) index = 0;
        std::string all;
        for (const auto& item : value) all += lines(name + "[" + std::to_string(index++) + "]", item);
        return all;
    }
}

std::string asJson(const std::string& file, const AnalysisRun& run, bool read) {
    Json fields = run.result(file, read ? "read" : "unreadable");
    if (!read) return jsonLine(fields);
    visitFields(run.record,
                [&](std::string_view name, const auto& value) { fields[name] = fieldJson(value); });
    return jsonLine(fields);
}

std::string asText(const Analysis& record) {
    std::string text;
    visitFields(record,
                [&](std::string_view name, const auto& value) { text += lines(std::string(name), value); });
    return text;
}

/// The row of the measuring parameter's bias as it is computed: a file holds none.
void computeBiasRow(Analysis& record, Workplace& workplace) {
    if (!(record.MTE_Offset > 0 && record.MTE_PctInTol > 0)) return;
    ConsoleInteraction unheard;
    Session session{workplace.settings, unheard, workplace.clock};
    session.record = record;
    FitMeasuringParameter(session);
    ShowErrorTable(session.record, session.regional);
    record.ErrTableDisplay[1] = session.record.ErrTableDisplay[1];
}

int show(const Options& options) {
    Output output;
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    const bool read = run.open(options.file);
    output.status = read ? allDone : unreadable;
    if (read) computeBiasRow(run.record, workplace);
    if (options.json)
        output.results = asJson(options.file, run, read);
    else if (read)
        output.results = asText(run.record);
    output.diagnostics = run.diagnostics(options.file);
    return finish(output);
}

} // namespace

void addShow(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command("show", "Print every field of an analysis by name");
    command.text("FILE", options->file, "Analysis file").shownAs(" ").isPath().required();
    command.flag("--json", options->json, "Print one JSON object instead of text");
    addSettingsOption(command, options->settings);
    command.examples({"show torque-wrench-50nm.mrk", "show --json torque-wrench-50nm.mrk"});
    command.then([options, &chosen] { chosen = [options] { return show(*options); }; });
}

} // namespace metrisk::cli
