// An analysis recomputed as it is stored: its figures beside those that its file holds.
#pragma once

#include "record/ParameterGroups.h"
#include "risk/TestEntries.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

struct Analysis;
struct Regional;

/// What the stored risks are to the recomputed ones.
enum class Agreement {
    None,     // there is nothing to compare: the analysis is refused or cannot be read
    Same,     // in all digits that a file holds
    Rounding, // within 1e-9 of them
    Differs,
    NeverComputed,
    Stale // entries have changed since they were computed
};
std::string_view wordOf(Agreement agreement);

enum class AuditStatus { Ok, Note, Refused, Unreadable };
std::string_view wordOf(AuditStatus status);

/// Bounds that a laboratory sets itself. Risks are fractions, false accept in the convention of each
/// analysis.
struct AuditLimits {
    std::optional<double> falseAccept{}, falseReject{}, tur{};
};
/// "fa=2%", "fr=500ppm", "tur=4". What is wrong with the text; empty if nothing is.
std::string readAuditLimit(std::string_view text, AuditLimits& limits);

/// Figures are fractions and ratios; none where there is none.
struct AuditRow {
    std::string file{};
    std::string sha256{}; // of its bytes
    Identification names{};
    std::optional<double> nominal{};
    std::string unit{};
    Convention convention = Convention::Consumer;
    std::optional<double> tur{}, consumer{}, producer{}, falseReject{};
    std::optional<double> storedFalseAccept{}, storedFalseReject{};
    Agreement agreement = Agreement::None;
    bool guardbanded = false;
    std::optional<double> upperMultiplier{}, lowerMultiplier{};
    std::optional<int> agreeingDigits{};
    std::vector<std::string_view> limits{}; // names of those passed over
    AuditStatus status = AuditStatus::Unreadable;
    std::string message{};

    /// In the convention of the analysis.
    const std::optional<double>& falseAccept() const {
        return convention == Convention::Producer ? producer : consumer;
    }
    /// Refused, outside of a limit, or with stored risks that are not its own.
    bool needsAttention() const;
};

/// All but file and digest, which are the reader's. Raises nothing: what is refused is told by the row.
AuditRow auditOf(const Analysis& record, const Regional& regional, const AuditLimits& limits);

} // namespace metrisk
