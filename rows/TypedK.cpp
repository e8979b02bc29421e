#include "rows/TypedK.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "risk/MeasuringFit.h"

#include <limits>

namespace metrisk {

namespace {

constexpr double sameAsOne = 1e-12;

} // namespace

KBasis kBasisOf(const TestPoint& point) {
    const TestEntries& e = point.entries;
    KBasis basis{std::numeric_limits<double>::quiet_NaN(), e.subject.upperOffset, e.subject.lowerOffset};
    try {
        basis.sigma = fitMeasuring(e.measuring, e.process ? &*e.process : nullptr).sigma;
    } catch (const RuntimeFault&) { // what is wrong with the measuring entries is told by their own rules
    }
    return basis;
}

double multiplierOfK(double k, const KBasis& basis, bool upper, std::string_view text) {
    const double multiplier = checked(1 - basis.sigma * k / (upper ? basis.upperOffset : basis.lowerOffset));
    if (multiplier < -sameAsOne)
        throw RowFault{false, toldText("Invalid k-Factor",
                                       "Using " + std::string(text) + " for the " +
                                           (upper ? "upper k-factor value sets the upper test limit below"
                                                  : "lower k-factor value sets the lower test limit above") +
                                           " the mode value.")};
    return multiplier;
}

void followTypedK(TestPoint& point) {
    if (!(point.kUpperTyped || point.kLowerTyped)) return;
    const KBasis now = kBasisOf(point);
    if (now == point.kBasis || !(now.sigma > 0)) return;
    point.kBasis = now;
    const Sides sides = point.entries.subject.sides;
    Guardband& multipliers = point.multipliers;
    if (point.kUpperTyped && now.upperOffset != 0 && sides != Sides::Lower)
        multipliers.upper = multiplierOfK(point.kUpper, now, true, GeneralText(point.kUpper, {}));
    if (point.kLowerTyped && now.lowerOffset != 0 && sides != Sides::Upper)
        multipliers.lower = multiplierOfK(point.kLower, now, false, GeneralText(point.kLower, {}));
    if (point.symmetricMultipliers && sides == Sides::Two) multipliers.lower = multipliers.upper;
    if (point.includeGuardbands) point.entries.guardband = multipliers;
}

} // namespace metrisk
