// The entries of an analysis as texts, and fields set by their names: all of them are put in, or none.
#pragma once

#include "record/FieldAccess.h"
#include "rows/Entries.h"
#include "rows/UnitFactors.h"
#include "unattended/AnalysisRun.h"

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace metrisk {

/// "Field=VALUE".
struct Assignment {
    FieldPlace place;
    std::string value;
};

/// Whether the text has the form of an assignment, whatever its field.
bool looksAssigned(const std::string& text);
/// What is wrong where the field is none, has no such element or is not to be set.
std::variant<Assignment, std::string> assignmentOf(const std::string& text);

/// A reading and a rule are entries of a decision on an analysis.
constexpr bool isOfAnalysis(Entry entry) {
    return entry != Entry::Reading && entry != Entry::Rule;
}

struct AnalysisEntries {
    std::array<std::optional<std::string>, entryCount> entries{}; // of an analysis
    std::string countsAs = "estimate";                            // as countsAsNamed reads it
    std::vector<Assignment> assignments{};

    bool any() const;
    /// What is wrong with them together: two for one entry. Empty if nothing is.
    std::string wrong(std::string (*nameOfEntry)(const EntryInfo&)) const;
    /// Puts all of them into the record, or none: the record is then as a file of it would be read. False
    /// where they are refused or cannot be read, which has been told.
    bool putInto(AnalysisRun& run, const UnitFactors& units) const;
};

} // namespace metrisk
