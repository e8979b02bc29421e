// The commands of metrisk-cli: each describes its options and, once it is chosen, runs.
#pragma once

#include <functional>
#include <string>

namespace CLI {
class App;
}

namespace metrisk::cli {

/// Gives the exit status.
using Command = std::function<int()>;

/// Each adds its command to the program; parsing its name puts what it does into `chosen`.
void addCompute(CLI::App& program, Command& chosen);
void addConvert(CLI::App& program, Command& chosen);
void addShow(CLI::App& program, Command& chosen);
void addBaseline(CLI::App& program, Command& chosen);
void addGuardband(CLI::App& program, Command& chosen);
void addObserved(CLI::App& program, Command& chosen);
void addReliability(CLI::App& program, Command& chosen);
void addMap(CLI::App& program, Command& chosen);
void addPlot(CLI::App& program, Command& chosen);
void addReport(CLI::App& program, Command& chosen);
void addVerify(CLI::App& program, Command& chosen);
void addInfo(CLI::App& program, Command& chosen);
void addSummary(CLI::App& program, Command& chosen);
void addSweep(CLI::App& program, Command& chosen);
void addOffset(CLI::App& program, Command& chosen);
void addUncertainty(CLI::App& program, Command& chosen);
void addUnits(CLI::App& program, Command& chosen);

/// Adds --settings, the name of a settings file that must exist; empty means the user's own.
void addSettingsOption(CLI::App& command, std::string& path);

struct Workplace;

/// The units database of the settings; that which comes with the program where they name none.
std::string unitsDatabaseOf(const Workplace& workplace);

} // namespace metrisk::cli
