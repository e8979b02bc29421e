// metrisk-cli show: every field of an analysis by its name.
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/JsonLine.h"
#include "model/AnalysisFields.h"
#include "model/NumberText.h"

namespace metrisk::cli {

namespace {

std::string fieldText(const std::string& text) {
    return "\"" + text + "\"";
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

} // namespace

int showCommand(const ShowOptions& options) {
    Output output;
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    if (!run.open(options.file)) {
        output.status = unreadable;
    } else if (options.json) {
        JsonLine line;
        visitFields(run.record, [&](std::string_view name, const auto& value) { line.add(name, value); });
        output.results = line.text();
    } else {
        visitFields(run.record, [&](std::string_view name, const auto& value) {
            output.results += lines(std::string(name), value);
        });
    }
    output.diagnostics = run.diagnostics(options.file);
    if (!emit(output) && output.status == allDone) output.status = refused;
    return output.status;
}

} // namespace metrisk::cli
