// The entries of an analysis as options: what new and set share.
#pragma once

#include "cli/Arguments.h"
#include "unattended/AnalysisEntries.h"

#include <string>

namespace metrisk::cli {

struct EntryOptions : AnalysisEntries {
    std::string unitsFile;

    /// Adds the entries, --counts and --units. The command must keep this where it is.
    void addTo(const Arguments& command);
    /// Adds "Field=VALUE". Raises WrongUsage where the field is none, has no such element or is not to be
    /// set.
    void assign(const std::string& text);
    /// What is wrong with them together: two for one entry. Empty if nothing is.
    std::string wrong() const;
    /// The units of the program, or of --units. Raises Unreadable.
    UnitFactors unitFactors() const;
};

} // namespace metrisk::cli
