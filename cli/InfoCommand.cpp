// metrisk-cli info: what the program runs on, and what it is made of.
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "desk/information/SystemInfo.h"
#include "files/DrawingLibraries.h"
#include "unattended/AnalysisRun.h"
#include "unattended/Json.h"

#include <cstdint>

namespace metrisk::cli {

namespace {

struct Options {
    std::string settings;
    bool json = false;
};

/// Whole numbers as such: a number of cores is no 2.0.
Json numberJson(double number) {
    const auto whole = static_cast<std::int64_t>(number);
    return static_cast<double>(whole) == number ? Json(whole) : Json(number);
}

int info(const Options& options) {
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    run.session.places.SettingsPath = workplace.settings.path().string();
    run.session.places.UnitsDatabasePath = unitsDatabaseOf(workplace);
    Output output;
    Json object = resultJson("", "read", {});
    for (const SystemFact& fact : systemFacts(run.session, drawingLibraries())) {
        object[fact.name] = fact.number ? numberJson(*fact.number) : Json(fact.text);
        output.results += tableRow(fact.name.c_str(), forResults(fact.text));
    }
    if (options.json) output.results = jsonLine(object);
    return finish(output);
}

} // namespace

void addInfo(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("info", "Print versions, system, memory and the files that are used");
    command.flag("--json", options->json, "Print one JSON object instead of a table");
    addSettingsOption(command, options->settings);
    command.examples({"info", "info --json"});
    command.then([options, &chosen] { chosen = [options] { return info(*options); }; });
}

} // namespace metrisk::cli
