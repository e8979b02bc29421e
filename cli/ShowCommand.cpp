// metrisk-cli show: every field of an analysis by its name.
#include "base/NumberText.h"
#include "cli/Commands.h"
#include "cli/FileList.h"
#include "cli/Output.h"
#include "record/AnalysisFields.h"
#include "unattended/AnalysisJson.h"

namespace metrisk::cli {

namespace {

struct Options {
    FileList list;
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

std::string asText(const Analysis& record) {
    std::string text;
    visitFields(record,
                [&](std::string_view name, const auto& value) { text += lines(std::string(name), value); });
    return text;
}

Output showFile(Workplace& workplace, const std::string& file, const Options& options) {
    Output output;
    AnalysisRun run(workplace);
    const bool read = run.open(file);
    output.status = read ? allDone : unreadable;
    if (options.json) {
        output.results = jsonLine(read ? analysisJson(file, run) : run.result(file, "unreadable"));
    } else if (read) {
        computeBiasRow(run);
        if (options.list.files.size() > 1) output.results = forResults(file) + "\n";
        output.results += asText(run.record);
    }
    output.diagnostics = diagnosticLines(file, run.ui.messages());
    return output;
}

int show(const Options& options) {
    Workplace workplace(options.settings);
    Outlet outlet(options.list.files.size());
    for (const std::string& file : options.list.files) outlet.put(showFile(workplace, file, options));
    return outlet.status();
}

} // namespace

void addShow(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command("show", "Print every field of analyses by name");
    options->list.addTo(command, "Analysis files");
    command.flag("--json", options->json, "Print one JSON object per file, each on one line");
    addSettingsOption(command, options->settings);
    command.examples({"show torque-wrench-50nm.mrk", "show --json torque-wrench-50nm.mrk"});
    command.then([options, &chosen] {
        options->list.check();
        chosen = [options] {
            options->list.read();
            return show(*options);
        };
    });
}

} // namespace metrisk::cli
