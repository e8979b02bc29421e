// Looks for figures in a record that are no numbers.
#pragma once

#include "record/Analysis.h"

#include <QString>

namespace metrisk::testing {

/// "NAME = value" of the first figure that is infinite or no number; empty if there is none.
QString firstNonFinite(const Analysis& record);

} // namespace metrisk::testing
