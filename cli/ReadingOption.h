// --reading: a measured value with the unit it was read in.
#pragma once

#include "cli/Arguments.h"
#include "rows/Cell.h"

#include <optional>
#include <string>
#include <string_view>

namespace metrisk {
struct Analysis;
}

namespace metrisk::cli {

struct ReadingOption {
    std::optional<std::string> reading{};

    Argument addTo(const Arguments& command, const char* about);
    /// What is wrong with a text that begins with no number; empty if nothing is.
    std::string readingFault() const;
    /// In nominal units; none where the option was not given. Raises RowFault where the unit cannot be.
    std::optional<double> nominalReading(const Analysis& record) const;
};

/// A reading as a line of a file has it; none if it begins with no number. Raises RowFault as above.
std::optional<double> nominalReading(std::string_view text, const Analysis& record);

} // namespace metrisk::cli
