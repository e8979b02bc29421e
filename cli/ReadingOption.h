// --reading: a measured value with the unit it was read in.
#pragma once

#include "cli/Arguments.h"
#include "rows/Cell.h"

#include <optional>
#include <string>

namespace metrisk::cli {

struct ReadingOption {
    std::optional<std::string> reading{};

    Argument addTo(const Arguments& command, const char* about);
    /// What is wrong with a text that begins with no number; empty if nothing is.
    std::string readingFault() const;
};

} // namespace metrisk::cli
