#include "risk/Snapshot.h"

#include "base/SameNumber.h"
#include "record/Analysis.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace metrisk {

namespace {

/// How an entry is compared with that of the last compute.
enum class By {
    Value,    // as entered
    Rounding, // derived from entries
    Nothing   // kept, but decided elsewhere
};

bool always(const Analysis&) {
    return true;
}
bool hasUpper(const Analysis& r) {
    return !r.OptSingleLower;
}
bool hasLower(const Analysis& r) {
    return !r.OptSingleUpper;
}
bool singleSided(const Analysis& r) {
    return !r.OptTwoSided;
}

template <class Value>
struct Kept {
    Value Snapshot::*last;
    Value Analysis::*now;
    By by = By::Value;
    bool (*counts)(const Analysis&) = always;
};

/// Each entry beside the copy that the last compute has left: what is taken is what is compared.
template <class Visit>
void eachKept(Visit visit) {
    const auto value = [&]<class Value, class Group>(Value Snapshot::*last, Value Group::*now,
                                                     By by = By::Value,
                                                     bool (*counts)(const Analysis&) = always) {
        visit(Kept<Value>{last, now, by, counts});
    };
    value(&Snapshot::Last_Mode, &Analysis::SU_Mode);
    value(&Snapshot::Last_UpperLimit, &Analysis::SU_UpperLimit, By::Value, hasUpper);
    value(&Snapshot::Last_LowerLimit, &Analysis::SU_LowerLimit, By::Value, hasLower);
    value(&Snapshot::Last_PctInTol, &Analysis::SU_PctInTol);
    value(&Snapshot::Last_PhysicalLimit, &Analysis::PhysicalLimit, By::Value, singleSided);
    value(&Snapshot::Last_MTEMode, &Analysis::MTE_Mode);
    value(&Snapshot::Last_MTEUpperLimit, &Analysis::MTE_UpperLimit);
    value(&Snapshot::Last_MTELowerLimit, &Analysis::MTE_LowerLimit,
          By::Nothing); // the upper one with another sign
    value(&Snapshot::Last_MTEPctInTol, &Analysis::MTE_PctInTol);
    value(&Snapshot::Last_MTESigma, &Analysis::MTE_Sigma, By::Rounding);
    value(&Snapshot::Last_IncludeUncertainty, &Analysis::IncludeUncertainty);
    value(&Snapshot::Last_MTEDegFreedom, &Analysis::MTE_DegFreedom, By::Nothing); // see freedomUnchanged
    value(&Snapshot::Last_MTEStdUncertainty, &Analysis::MTE_StdUncertainty, By::Rounding);
    value(&Snapshot::Last_OptTwoSided, &Analysis::OptTwoSided);
    value(&Snapshot::Last_OptSingleUpper, &Analysis::OptSingleUpper);
    value(&Snapshot::Last_OptSingleLower, &Analysis::OptSingleLower);
    value(&Snapshot::Last_PhysLimitRequired, &Analysis::PhysLimitRequired);
    value(&Snapshot::Last_IncludeGuardbands, &Analysis::IncludeGuardbands,
          By::Nothing); // see guardbandsUnchanged
    value(&Snapshot::Last_GBUpper, &Analysis::GB_UpperMult, By::Nothing);
    value(&Snapshot::Last_GBLower, &Analysis::GB_LowerMult, By::Nothing);
}

/// Typed with an uncertainty, else what the process errors leave.
bool freedomUnchanged(const Analysis& r) {
    return r.MTE_EntryByUncertainty ? r.Last_MTEDegFreedom == r.MTE_DegFreedom
                                    : sameDerived(r.Last_MTEDegFreedom, r.MTE_DegFreedom);
}

bool entriesUnchanged(const Analysis& r) {
    bool all = freedomUnchanged(r);
    eachKept([&]<class Value>(const Kept<Value>& kept) {
        if (kept.by == By::Nothing || !kept.counts(r)) return;
        bool same = r.*kept.last == r.*kept.now;
        if constexpr (std::is_same_v<Value, double>)
            if (kept.by == By::Rounding) same = sameDerived(r.*kept.last, r.*kept.now);
        all = all && same;
    });
    return all;
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
    eachKept([&r](const auto& kept) { r.*kept.last = r.*kept.now; });
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
