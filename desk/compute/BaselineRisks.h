// The risks of the reference case on the record, with their messages.
#pragma once

#include "risk/BaselineModel.h"

#include <optional>

namespace metrisk {

struct Session;

/// The risks under the record's false accept option, never negative. None for a figure out of range, without
/// a word, and after a failure, which is told. AbortFlag is left clear.
std::optional<Risks> ComputeBaselineRisks(Session& session, const BaselineCase& baseline);

} // namespace metrisk
