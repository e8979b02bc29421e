// metrisk-cli units: what a units database holds, and its exchange with other files.
#include "base/NumberText.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "cli/OutputFile.h"
#include "desk/files/StartUp.h"
#include "unattended/AnalysisRun.h"
#include "unattended/Input.h"
#include "unattended/Json.h"
#include "units/UnitsTable.h"
#include "units/database/UnitsDatabase.h"

#include <filesystem>

namespace metrisk::cli {

namespace {

namespace fs = std::filesystem;

struct Options {
    std::string area;
    std::string file;  // the database
    std::string other; // what is read into it, or written from it
    std::string settings;
    bool json = false;
    bool replace = false;
    bool force = false;
};

using Open = std::unique_ptr<UnitsDatabase>;

/// What a command has to say, as lines and as an object.
struct Report {
    std::string file; // the database
    int status = allDone;
    UnattendedInteraction ui{};
    std::string text{};
    Json figures{}; // members of the object behind the common ones
};

int finish(const Report& report, bool json, const char* done) {
    Output output{.diagnostics = diagnosticLines(report.file, report.ui.messages()), .status = report.status};
    if (!json) {
        output.results = report.text;
        return finish(output);
    }
    Json object = resultJson(report.file, statusWord(report.status, done), report.ui.messages());
    if (const auto* members = std::get_if<Json::Object>(&report.figures.value()))
        for (const auto& [key, value] : *members) object[key] = value;
    output.results = jsonLine(object);
    return finish(output);
}

/// Opens the database; without one the report says why.
Open opened(Report& report) {
    try {
        Open units = openUnitsDatabase(report.file);
        if (const std::size_t count = units->leftOut(); count > 0)
            report.ui.note("units or areas left out: " + std::to_string(count) +
                           "; they lack a name or a multiplier above 0, or are too long");
        return units;
    } catch (const UnitsError& fault) {
        report.ui.note(unitsFault(report.file, fault));
        report.status = unreadable;
        return nullptr;
    }
}

/// Runs the work; what is refused is told. A text where the fault does not lie in the database names its
/// file.
template <class Work>
void attempt(Report& report, Work work, const std::string& fileAtFault = {}) {
    try {
        work();
    } catch (const UnitsError& fault) {
        report.ui.note((fileAtFault.empty() ? "" : fileAtFault + ": ") + fault.what());
        report.status = refused;
    }
}

std::string fileOf(const Options& options) {
    if (!options.file.empty()) return options.file;
    return unitsDatabaseOf(Workplace(options.settings));
}

/// The content, or that of one area.
std::vector<AreaContent> contentOf(UnitsDatabase& units, const std::string& area) {
    std::vector<AreaContent> content = units.content();
    if (area.empty()) return content;
    std::erase_if(content, [&](const AreaContent& each) { return compareNames(each.name, area) != 0; });
    if (content.empty()) throw UnitsError("there is no measurement area " + area);
    return content;
}

Json areaJson(const AreaContent& area) {
    Json units = Json::array();
    for (const MeasurementUnit& unit : area.units)
        units.push_back({{"unit", unit.symbol},
                         {"multiplier", unit.multiplier},
                         {"group", unit.group},
                         {"description", unit.description}});
    return {{"area", area.name}, {"units", units}};
}

std::string tableOf(const std::vector<AreaContent>& content, bool units) {
    std::string text;
    for (const AreaContent& area : content) {
        if (!units)
            text += tableRow(forResults(area.name).c_str(), std::to_string(area.units.size()) + " units");
        for (const MeasurementUnit& unit : units ? area.units : std::vector<MeasurementUnit>())
            text += tableRow(forResults(unit.symbol).c_str(),
                             GeneralText(unit.multiplier, {}) + "  " + forResults(unit.description));
    }
    return text;
}

int list(const Options& options) {
    Report report{.file = fileOf(options)};
    Json areas = Json::array();
    if (const Open units = opened(report))
        attempt(report, [&] {
            const std::vector<AreaContent> content = contentOf(*units, options.area);
            for (const AreaContent& area : content) areas.push_back(areaJson(area));
            report.text = tableOf(content, !options.area.empty());
        });
    report.figures["areas"] = areas;
    return finish(report, options.json, "read");
}

struct Amounts {
    std::size_t areas, units;
};

Amounts amountsOf(const std::vector<AreaContent>& content) {
    std::size_t count = 0;
    for (const AreaContent& area : content) count += area.units.size();
    return {content.size(), count};
}

std::string amountsText(const Amounts& amounts) {
    return std::to_string(amounts.areas) + " measurement areas, " + std::to_string(amounts.units) +
           " units\n";
}

int check(const Options& options) {
    Report report{.file = options.file};
    if (const Open units = opened(report))
        attempt(report, [&] {
            const Amounts amounts = amountsOf(units->content());
            report.text = forResults(options.file) + ": " + amountsText(amounts);
            report.figures["areas"] = amounts.areas;
            report.figures["units"] = amounts.units;
        });
    return finish(report, options.json, "read");
}

int convert(const Options& options) {
    Report report{.file = options.file};
    if (const std::string fault = targetFault(options.other, options.force, {options.file}); !fault.empty())
        return finish(refusal(options.file, fault, wrongUsage, options.json));
    if (const Open units = opened(report))
        attempt(
            report,
            [&] {
                refuseForeignFile(options.other);
                units->saveAs(options.other);
            },
            options.other);
    report.figures["output"] = report.status == allDone ? Json(options.other) : Json();
    return finish(report, options.json, "written");
}

/// Adds the content to the database, or makes it of the content where there is none. What has been added is
/// counted.
MergeCounts added(const std::string& file, const std::vector<AreaContent>& content, Report& report) {
    const auto [areas, units] = amountsOf(content);
    std::error_code none;
    if (!fs::exists(file, none) && makeNewUnitsDatabase(file, content))
        return {.areas = static_cast<int>(areas), .units = static_cast<int>(units), .changed = 0};
    const Open database = opened(report);
    return database ? database->merge(content) : MergeCounts{};
}

int import(const Options& options) {
    constexpr std::size_t largest = 64u << 20;
    Report report{.file = options.file};
    const std::string text = readInput(options.other, largest);
    std::vector<AreaContent> content;
    try {
        content = readUnitsTable(text);
    } catch (const UnitsError& fault) {
        return finish(refusal(options.other, fault.what(), refused, options.json));
    }
    attempt(report, [&] {
        refuseForeignFile(options.file);
        if (options.replace) {
            makeUnitsDatabase(options.file, content);
            const Amounts amounts = amountsOf(content);
            report.text = amountsText(amounts);
            report.figures["areas"] = amounts.areas;
            report.figures["units"] = amounts.units;
            return;
        }
        const MergeCounts counts = added(options.file, content, report);
        if (report.status != allDone) return;
        report.text = tableRow("Measurement areas added", std::to_string(counts.areas)) +
                      tableRow("Units added", std::to_string(counts.units)) +
                      tableRow("Units changed", std::to_string(counts.changed));
        report.figures["areasAdded"] = counts.areas;
        report.figures["unitsAdded"] = counts.units;
        report.figures["unitsChanged"] = counts.changed;
    });
    return finish(report, options.json, "written");
}

int exportTable(const Options& options) {
    Report report{.file = fileOf(options)};
    if (const Open units = opened(report))
        attempt(report, [&] {
            const std::string table = writeUnitsTable(contentOf(*units, options.area));
            report.text = linesForResults(table);
            report.figures["table"] = table;
        });
    return finish(report, options.json, "read");
}

} // namespace

std::string unitsDatabaseOf(const Workplace& workplace) {
    const std::string path =
        workplace.settings.ReadSetting("Home Location", "Units Database", "", wholeValue);
    if (!path.empty()) return path;
    std::error_code none;
    const fs::path program = fs::read_symlink("/proc/self/exe", none).parent_path();
    const std::string sample = sampleUnitsOf(program.string());
    // Where it should be, so that a message can name it.
    return !sample.empty() ? sample
                           : (program / "../share/metrisk/Measurement Units.mdb").lexically_normal().string();
}

std::string unitsFault(const std::string& path, const UnitsError& fault) {
    std::error_code none;
    return fs::exists(path, none) ? std::string("is not an Metrisk units database: ") + fault.what()
                                  : "there is no such units database; name one with --file";
}

void addUnits(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments units =
        program.command("units", "Show, check, convert, import or export a units database");
    units.needsCommand();
    const auto add = [&](const char* name, const char* about, const std::vector<std::string>& examples,
                         int (*work)(const Options&)) {
        const Arguments command = units.command(name, about);
        command.examples(examples);
        command.then([options, work, &chosen] { chosen = [options, work] { return work(*options); }; });
        return command;
    };
    const auto addJson = [&](const Arguments& command) {
        command.flag("--json", options->json, "Print one JSON object instead of text");
    };
    const auto addChoice = [&](const Arguments& command) {
        command.text("AREA", options->area, "Only this measurement area").shownAs(" ");
        command.text("--file", options->file, "Units database to use instead of your own")
            .shownAs("DATABASE")
            .isPath();
        addJson(command);
        addSettingsOption(command, options->settings);
    };
    const auto addFile = [&](const Arguments& command, const char* about) {
        command.text("DATABASE", options->file, about).shownAs(" ").isPath().required();
        addJson(command);
    };
    const auto addOther = [&](const Arguments& command, const char* name, const char* about) {
        command.text(name, options->other, about).shownAs(" ").isPath().required();
    };
    addChoice(add("list", "List the measurement areas, or the units of one",
                  {"units list", "units list 'DC Voltage' --json"}, list));
    addFile(add("check", "Tell whether a file is a units database", {"units check units.mdb"}, check),
            "File to check");
    const Arguments converter =
        add("convert", "Copy a database, also that of another program, into our own form",
            {"units convert units.mdb copy.mdb"}, convert);
    addFile(converter, "Database to read");
    addOther(converter, "OUT", "Database to write");
    addForceOption(converter, options->force);
    const Arguments importer =
        add("import", "Add the units of a table, or change them to it",
            {"units import units.mdb units.csv", "units import new.mdb - <units.csv"}, import);
    addFile(importer, "Database to change; made if there is none");
    addOther(importer, "TABLE", "File of comma-separated area, unit, multiplier, group, description");
    importer.flag("--replace", options->replace, "Remove what is not in the table");
    addChoice(add("export", "Print the units as such a table",
                  {"units export >all.csv", "units export 'DC Voltage' --file units.mdb"}, exportTable));
}

} // namespace metrisk::cli
