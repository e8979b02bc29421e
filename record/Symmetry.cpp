#include "record/Symmetry.h"

#include "record/ParameterGroups.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double relativeDifference = 1e-7;
constexpr double limitRounding = 2e-15; // of the largest figure that the offsets may come from

} // namespace

bool isSymmetric(const SubjectParameter& su) {
    if (!su.OptTwoSided) return false;
    const double a = su.SU_UpperOffset;
    const double b = su.SU_LowerOffset;
    const double largest =
        std::max({std::fabs(su.SU_Mode), std::fabs(su.SU_UpperLimit), std::fabs(su.SU_LowerLimit)});
    return std::fabs(a - b) <= std::max(relativeDifference * ((a + b) / 2), limitRounding * largest);
}

} // namespace metrisk
