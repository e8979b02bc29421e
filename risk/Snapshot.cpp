#include "risk/Snapshot.h"

#include "base/SameNumber.h"
#include "record/Analysis.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace metrisk {

namespace {

/// Typed with an uncertainty, else what the process errors leave.
bool freedomUnchanged(const Analysis& r) {
    return r.MTE_EntryByUncertainty ? r.Last_MTEDegFreedom == r.MTE_DegFreedom
                                    : sameDerived(r.Last_MTEDegFreedom, r.MTE_DegFreedom);
}

bool entriesUnchanged(const Analysis& r) {
    return r.Last_Mode == r.SU_Mode && (r.OptSingleLower || r.Last_UpperLimit == r.SU_UpperLimit) &&
           (r.OptSingleUpper || r.Last_LowerLimit == r.SU_LowerLimit) && r.Last_PctInTol == r.SU_PctInTol &&
           (r.OptTwoSided || r.Last_PhysicalLimit == r.PhysicalLimit) && r.Last_MTEMode == r.MTE_Mode &&
           r.Last_MTEUpperLimit == r.MTE_UpperLimit && r.Last_MTEPctInTol == r.MTE_PctInTol &&
           freedomUnchanged(r) && sameDerived(r.Last_MTEStdUncertainty, r.MTE_StdUncertainty) &&
           sameDerived(r.Last_MTESigma, r.MTE_Sigma) && r.Last_OptTwoSided == r.OptTwoSided &&
           r.Last_OptSingleUpper == r.OptSingleUpper && r.Last_OptSingleLower == r.OptSingleLower &&
           r.Last_PhysLimitRequired == r.PhysLimitRequired &&
           r.Last_IncludeUncertainty == r.IncludeUncertainty;
}

bool guardbandsUnchanged(const Analysis& r) {
    if (r.IncludeGuardbands != r.Last_IncludeGuardbands) return false;
    // That of a typed k-factor is derived.
    const auto same = [](double last, double now, bool derived) {
        return derived ? sameDerived(last, now) : last == now;
    };
    return !r.IncludeGuardbands ||
           (!r.GuardbandsChanged && same(r.Last_GBUpper, r.GB_UpperMult, r.GB_UpperKEntered) &&
            same(r.Last_GBLower, r.GB_LowerMult, r.GB_LowerKEntered || r.GB_SymmetricK));
}

int wholeNumber(double value) {
    constexpr double largest = std::numeric_limits<std::int16_t>::max();
    return static_cast<int>(std::clamp(std::trunc(value), -largest, largest));
}

} // namespace

void CompareWithSnapshot(Analysis& r) {
    r.GuardbandsUnchanged = true;
    r.NothingChanged = entriesUnchanged(r);
    if (!r.NothingChanged) return;
    r.NothingChanged = r.IncludeGuardbands == r.Last_IncludeGuardbands;
    r.GuardbandsUnchanged = guardbandsUnchanged(r);
}

bool snapshotHolds(const Analysis& r) {
    return entriesUnchanged(r) && guardbandsUnchanged(r);
}

void CompareBaseline(Analysis& r) {
    r.BaselineUnchanged = r.Last_Base1 == r.Base_AccRatNum && r.Last_Base2 == r.Base_AccRatDen &&
                          r.Last_Base3 == r.Base_MTEPctInTol && r.Last_Base4 == r.Base_SUPctInTol;
}

bool baselineSnapshotHolds(const Analysis& r) {
    return r.Last_Base1 == wholeNumber(r.Base_AccRatNum) && r.Last_Base2 == wholeNumber(r.Base_AccRatDen) &&
           r.Last_Base3 == wholeNumber(r.Base_MTEPctInTol) && r.Last_Base4 == wholeNumber(r.Base_SUPctInTol);
}

void TakeSnapshot(Analysis& r) {
    r.Last_Mode = r.SU_Mode;
    r.Last_UpperLimit = r.SU_UpperLimit;
    r.Last_LowerLimit = r.SU_LowerLimit;
    r.Last_PctInTol = r.SU_PctInTol;
    r.Last_PhysicalLimit = r.PhysicalLimit;
    r.Last_MTEMode = r.MTE_Mode;
    r.Last_MTEUpperLimit = r.MTE_UpperLimit;
    r.Last_MTELowerLimit = r.MTE_LowerLimit;
    r.Last_MTEPctInTol = r.MTE_PctInTol;
    r.Last_MTESigma = r.MTE_Sigma;
    r.Last_IncludeUncertainty = r.IncludeUncertainty;
    r.Last_MTEDegFreedom = r.MTE_DegFreedom;
    r.Last_MTEStdUncertainty = r.MTE_StdUncertainty;
    r.Last_OptTwoSided = r.OptTwoSided;
    r.Last_OptSingleUpper = r.OptSingleUpper;
    r.Last_OptSingleLower = r.OptSingleLower;
    r.Last_PhysLimitRequired = r.PhysLimitRequired;
    r.Last_IncludeGuardbands = r.IncludeGuardbands;
    r.Last_GBUpper = r.GB_UpperMult;
    r.Last_GBLower = r.GB_LowerMult;
}

void TakeBaselineSnapshot(Analysis& r) {
    r.Last_Base1 = wholeNumber(r.Base_AccRatNum);
    r.Last_Base2 = wholeNumber(r.Base_AccRatDen);
    r.Last_Base3 = wholeNumber(r.Base_MTEPctInTol);
    r.Last_Base4 = wholeNumber(r.Base_SUPctInTol);
}

void DropSnapshot(Analysis& r) {
    r.Last_PctInTol = 0; // no analysis has a compute of it
}

void DropBaselineSnapshot(Analysis& r) {
    r.Last_Base1 = -1; // no accuracy ratio is negative
}

void dropEquivalentRatio(Analysis& r) {
    r.EqAccRat = 0;
    r.EqAccRatDen.clear();
    DropBaselineSnapshot(r);
}

} // namespace metrisk
