#include "risk/CoverageFactor.h"

#include "model/Interaction.h"
#include "numerics/Real.h"
#include "numerics/SpecialFunctions.h"
#include "numerics/mathlib/InvNorm.h"

#include <numbers>

namespace metrisk {

namespace {

constexpr double slowDegFreedom = 250;
constexpr const char* solvingText = "Solving for the coverage factor...";

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

double SolveCoverageFactor(double pctConfidence, double degFreedom, Interaction& ui) {
    if (!usesStudentsT(degFreedom) || degFreedom <= slowDegFreedom)
        return CoverageFactor(pctConfidence, degFreedom);
    const WaitPointer wait(ui);
    const StatusText status(ui, solvingText);
    return CoverageFactor(pctConfidence, degFreedom);
}

} // namespace metrisk
