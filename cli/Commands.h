// The commands of metrisk-cli: each describes its options and, once it is chosen, runs.
#pragma once

#include "cli/Arguments.h"

#include <functional>
#include <string>

namespace metrisk {
class UnitsError;
struct CoverageChoice;
struct Workplace;
} // namespace metrisk

namespace metrisk::cli {

/// Gives the exit status.
using Command = std::function<int()>;

/// Each adds its command to the program; parsing its name puts what it does into `chosen`.
void addCompute(const Arguments& program, Command& chosen);
void addConvert(const Arguments& program, Command& chosen);
void addShow(const Arguments& program, Command& chosen);
void addBaseline(const Arguments& program, Command& chosen);
void addGuardband(const Arguments& program, Command& chosen);
void addObserved(const Arguments& program, Command& chosen);
void addReliability(const Arguments& program, Command& chosen);
void addMap(const Arguments& program, Command& chosen);
void addPlot(const Arguments& program, Command& chosen);
void addReport(const Arguments& program, Command& chosen);
void addVerify(const Arguments& program, Command& chosen);
void addInfo(const Arguments& program, Command& chosen);
void addSummary(const Arguments& program, Command& chosen);
void addSweep(const Arguments& program, Command& chosen);
void addOffset(const Arguments& program, Command& chosen);
void addUncertainty(const Arguments& program, Command& chosen);
void addUnits(const Arguments& program, Command& chosen);
void addDecide(const Arguments& program, Command& chosen);
void addWorst(const Arguments& program, Command& chosen);
void addCounts(const Arguments& program, Command& chosen);
void addStrategies(const Arguments& program, Command& chosen);
void addOffCentre(const Arguments& program, Command& chosen);
void addRows(const Arguments& program, Command& chosen);
void addNew(const Arguments& program, Command& chosen);
void addSet(const Arguments& program, Command& chosen);
void addAudit(const Arguments& program, Command& chosen);

/// Adds --settings, the name of a settings file that must exist; empty means the user's own.
void addSettingsOption(const Arguments& command, std::string& path);

/// Adds --k, the coverage factor of U.
void addCoverageOption(const Arguments& command, CoverageChoice& coverage);

/// The units database of the settings; that which comes with the program where they name none. It may be
/// missing.
std::string unitsDatabaseOf(const Workplace& workplace);

/// Why it cannot be opened.
std::string unitsFault(const std::string& path, const UnitsError& fault);

} // namespace metrisk::cli
