#include "numerics/CoverageFactor.h"

#include "base/Real.h"
#include "numerics/SpecialFunctions.h"
#include "numerics/mathlib/InvNorm.h"

#include <numbers>

namespace metrisk {

namespace {

bool usesStudentsT(double degFreedom) {
    return degFreedom > 0 && degFreedom < infiniteDegFreedom;
}

} // namespace

double StandardFactor100() {
    return std::numbers::sqrt3;
}

double CoverageFactor(double pctConfidence, double degFreedom) {
    if (pctConfidence == 100) return StandardFactor100();
    const double p = pctConfidence / 100;
    return checked(usesStudentsT(degFreedom) ? InverseStudentT(degFreedom, p) : InvNorm((p + 1) / 2));
}

} // namespace metrisk
