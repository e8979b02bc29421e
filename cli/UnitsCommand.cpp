// metrisk-cli units: what a units database holds, and its exchange with other files.
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Json.h"
#include "model/NumberText.h"
#include "persistence/AtomicFile.h"
#include "shell/StartUp.h"
#include "units/UnitsDatabase.h"
#include "units/UnitsTable.h"

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

/// Opens the database; without one the output says why.
Open opened(const std::string& path, Output& output) {
    try {
        Open units = openUnitsDatabase(path);
        if (const std::size_t count = units->leftOut(); count > 0)
            output.diagnostics +=
                diagnosticLine(path, "units or areas left out: " + std::to_string(count) +
                                         "; they lack a name or a multiplier above 0, or are too long");
        return units;
    } catch (const UnitsError& fault) {
        output.diagnostics +=
            diagnosticLine(path, std::string("is not an Metrisk units database: ") + fault.what());
        output.status = unreadable;
        return nullptr;
    }
}

/// Runs the work; what the database refuses is told.
template <class Work>
void attempt(const std::string& path, Output& output, Work work) {
    try {
        work();
    } catch (const UnitsError& fault) {
        output.diagnostics += diagnosticLine(path, fault.what());
        output.status = refused;
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
        if (!units) text += tableRow(area.name.c_str(), std::to_string(area.units.size()) + " units");
        for (const MeasurementUnit& unit : units ? area.units : std::vector<MeasurementUnit>())
            text += tableRow(unit.symbol.c_str(), GeneralText(unit.multiplier, {}) + "  " + unit.description);
    }
    return text;
}

int list(const Options& options) {
    const std::string path = fileOf(options);
    Output output;
    Json areas = Json::array();
    if (const Open units = opened(path, output))
        attempt(path, output, [&] {
            const std::vector<AreaContent> content = contentOf(*units, options.area);
            for (const AreaContent& area : content) areas.push_back(areaJson(area));
            output.results = tableOf(content, !options.area.empty());
        });
    if (options.json) {
        const char* status = output.status == allDone   ? "read"
                             : output.status == refused ? "refused"
                                                        : "unreadable";
        Json messages = Json::array();
        if (!output.diagnostics.empty()) messages.push_back({{"text", output.diagnostics}});
        output.results =
            jsonLine({{"file", path}, {"status", status}, {"messages", messages}, {"areas", areas}});
    }
    return finish(output);
}

std::string amounts(const std::vector<AreaContent>& content) {
    std::size_t count = 0;
    for (const AreaContent& area : content) count += area.units.size();
    return std::to_string(content.size()) + " measurement areas, " + std::to_string(count) + " units\n";
}

int check(const Options& options) {
    Output output;
    if (const Open units = opened(options.file, output))
        attempt(options.file, output,
                [&] { output.results = options.file + ": " + amounts(units->content()); });
    return finish(output);
}

int convert(const Options& options) {
    Output output;
    std::error_code none;
    if (!options.force && fs::exists(options.other, none))
        return finish({.diagnostics = diagnosticLine(options.other, "exists; use --force to replace it"),
                       .status = wrongUsage});
    if (const Open units = opened(options.file, output))
        attempt(options.other, output, [&] {
            if (fs::equivalent(options.file, options.other, none))
                throw UnitsError("the database cannot be replaced by itself");
            refuseForeignFile(options.other);
            units->saveAs(options.other);
        });
    return finish(output);
}

int import(const Options& options) {
    constexpr std::size_t largest = 64u << 20;
    Output output;
    const auto text = readWholeFile(options.other, largest);
    if (!text)
        return finish({.diagnostics = diagnosticLine(options.other, "cannot be read"), .status = unreadable});
    std::vector<AreaContent> content;
    attempt(options.other, output, [&] { content = readUnitsTable(*text); });
    if (output.status != allDone) return finish(output);
    std::error_code none;
    const bool exists = fs::exists(options.file, none);
    const Open units = exists ? opened(options.file, output) : nullptr;
    if (exists && !units) return finish(output);
    attempt(options.file, output, [&] {
        refuseForeignFile(options.file);
        if (!exists) makeUnitsDatabase(options.file);
        if (options.replace) {
            makeUnitsDatabase(options.file, content);
            output.results = amounts(content);
            return;
        }
        const MergeCounts counts = (exists ? *units : *openUnitsDatabase(options.file)).merge(content);
        output.results = tableRow("Measurement areas added", std::to_string(counts.areas)) +
                         tableRow("Units added", std::to_string(counts.units)) +
                         tableRow("Units changed", std::to_string(counts.changed));
    });
    return finish(output);
}

int exportTable(const Options& options) {
    const std::string path = fileOf(options);
    Output output;
    if (const Open units = opened(path, output))
        attempt(path, output, [&] { output.results = writeUnitsTable(contentOf(*units, options.area)); });
    return finish(output);
}

} // namespace

std::string unitsDatabaseOf(const Workplace& workplace) {
    const std::string path =
        workplace.settings.ReadSetting("Home Location", "Units Database", "", wholeValue);
    std::error_code none;
    if (!path.empty()) return path;
    return sampleUnitsOf(fs::read_symlink("/proc/self/exe", none).parent_path().string());
}

void addUnits(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments units =
        program.command("units", "Show, check, convert, import or export a units database");
    units.needsCommand();
    const auto add = [&](const char* name, const char* about, int (*work)(const Options&)) {
        const Arguments command = units.command(name, about);
        command.then([options, work, &chosen] { chosen = [options, work] { return work(*options); }; });
        return command;
    };
    const auto addChoice = [&](const Arguments& command) {
        command.text("AREA", options->area, "Only this measurement area").shownAs(" ");
        command.text("--file", options->file, "Units database to use instead of your own")
            .shownAs("DATABASE");
        addSettingsOption(command, options->settings);
    };
    const auto addFile = [&](const Arguments& command, const char* about) {
        command.text("DATABASE", options->file, about).shownAs(" ").required();
    };
    const auto addOther = [&](const Arguments& command, const char* name, const char* about) {
        command.text(name, options->other, about).shownAs(" ").required();
    };
    const Arguments lister = add("list", "List the measurement areas, or the units of one", list);
    addChoice(lister);
    lister.flag("--json", options->json, "Print one JSON object instead of text");
    addFile(add("check", "Tell whether a file is a units database", check), "File to check");
    const Arguments converter =
        add("convert", "Copy a database, also that of another program, into our own form", convert);
    addFile(converter, "Database to read");
    addOther(converter, "OUT", "Database to write");
    converter.flag("--force", options->force, "Replace an existing file");
    const Arguments importer = add("import", "Add the units of a table, or change them to it", import);
    addFile(importer, "Database to change; made if there is none");
    addOther(importer, "TABLE", "File of comma-separated area, unit, multiplier, group, description");
    importer.flag("--replace", options->replace, "Remove what is not in the table");
    addChoice(add("export", "Print the units as such a table", exportTable));
}

} // namespace metrisk::cli
