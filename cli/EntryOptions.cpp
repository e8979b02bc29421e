#include "cli/EntryOptions.h"

#include "cli/Commands.h"
#include "unattended/Input.h"
#include "units/database/UnitsDatabase.h"

#include <algorithm>

namespace metrisk::cli {

namespace {

std::string optionOf(const EntryInfo& info) {
    std::string name = "--" + std::string(info.name);
    std::ranges::replace(name, '_', '-');
    return name;
}

} // namespace

void EntryOptions::assign(const std::string& text) {
    auto read = assignmentOf(text);
    if (const auto* wrong = std::get_if<std::string>(&read)) throw WrongUsage(*wrong);
    assignments.push_back(std::move(std::get<Assignment>(read)));
}

void EntryOptions::addTo(const Arguments& command) {
    for (const EntryInfo& info : entryTable())
        if (isOfAnalysis(info.entry))
            command
                .text(optionOf(info).c_str(), entries[static_cast<std::size_t>(info.entry)],
                      std::string(info.about).c_str())
                .shownAs("VALUE")
                .under("Entries");
    command.text("--counts", countsAs, "What passed and tested stand for")
        .oneOf({"estimate", "lower", "median", "observed"});
    command.text("--units", unitsFile, "Units database; otherwise the units of the program")
        .shownAs("FILE")
        .isPath();
}

std::string EntryOptions::wrong() const {
    return AnalysisEntries::wrong(optionOf);
}

UnitFactors EntryOptions::unitFactors() const {
    if (unitsFile.empty()) return {};
    try {
        return UnitFactors(openUnitsDatabase(unitsFile)->content());
    } catch (const UnitsError& fault) {
        throw Unreadable(unitsFile, fault.what());
    }
}

} // namespace metrisk::cli
