#include "shell/mainscreen/SavedCopy.h"

#include <cmath>

namespace metrisk {

namespace {

constexpr double sameUncertainty = 1e-14;

} // namespace

bool SavedCopy::differs(const Analysis& r) const {
    return fields_.differ(r) || std::fabs(uncertainty_ - r.MTE_StdUncertainty) >= sameUncertainty;
}

} // namespace metrisk
