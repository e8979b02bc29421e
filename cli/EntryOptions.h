// The entries of an analysis as options, and fields set by their names: what new and set share.
#pragma once

#include "cli/AnalysisRun.h"
#include "cli/Arguments.h"
#include "record/FieldAccess.h"
#include "rows/Entries.h"
#include "rows/UnitFactors.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace metrisk::cli {

/// "Field=VALUE".
struct Assignment {
    FieldPlace place;
    std::string value;
};

/// Whether the text has the form of an assignment, whatever its field.
bool looksAssigned(const std::string& text);
/// Raises WrongUsage where the field is none, has no such element or is not to be set.
Assignment assignmentOf(const std::string& text);

struct EntryOptions {
    std::array<std::optional<std::string>, entryCount> entries{};
    std::string countsAs = "estimate";
    std::string unitsFile;
    std::vector<Assignment> assignments{};

    /// Adds the entries, --counts and --units. The command must keep this where it is.
    void addTo(const Arguments& command);
    bool any() const;
    /// What is wrong with them together: two for one entry. Empty if nothing is.
    std::string wrong() const;
    /// The units of the program, or of --units. Raises Unreadable.
    UnitFactors unitFactors() const;
    /// Puts all of them into the record, or none: the record is then as a file of it would be read. False
    /// where they are refused or cannot be read, which has been told.
    bool putInto(AnalysisRun& run, const UnitFactors& units) const;
};

/// Computes afresh; false if that was refused, which has been told.
bool computeFigures(AnalysisRun& run);

} // namespace metrisk::cli
