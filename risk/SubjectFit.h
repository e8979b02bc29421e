// The bias distribution that fits the entries of the subject parameter, as a value.
#pragma once

#include "base/Regional.h"
#include "record/ParameterGroups.h"

#include <string>
#include <string_view>

namespace metrisk {

/// Thrown where the entries allow no fit.
struct FitRefusal {
    std::string_view title;
    std::string text;
    const char* box; // the one concerned, null if there is none
};

/// Chooses the distribution and solves for its parameters; the result is the parameter with its fitted
/// fields and, for unequal two-sided limits, its PhysicalLimit. Raises FitRefusal, a spread of 0 included,
/// or RuntimeFault. `regional` serves the texts of a refusal, which show as many digits as SU_Mode_fmt, and
/// without one as many as tell a range's ends apart.
///
/// Case codes: 1 LogNormal, limit between physical limit and mode; 2 LogNormal, limit beyond the mode;
/// 3 LogNormal two-sided; 4, 5, 6 Normal single lower, single upper, two-sided; 7, 8 Exponential away
/// from and towards the limit; 9 Uniform.
SubjectParameter fitSubject(const SubjectParameter& entered, const Regional& regional);

} // namespace metrisk
