// What exact integration says of the shown figures, where it would show others.
#pragma once

#include "base/Regional.h"

#include <string>

namespace metrisk {

struct Analysis;

/// Each empty where the shown figure stands, or belongs to other entries.
struct ExactRemarks {
    std::string falseAccept, falseReject, ratio, baselineFalseAccept, baselineFalseReject;
};

ExactRemarks exactRemarksOf(const Analysis& record, const Regional& regional);

/// A compute has ended for this analysis, now or before it was saved.
bool everComputed(const Analysis& record);

/// The ratio as it is shown; empty before a search.
std::string ratioText(const Analysis& record, const Regional& regional);

} // namespace metrisk
