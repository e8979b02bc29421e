// Analyses of every kind, entered as a user would leave them.
#pragma once

#include "record/Analysis.h"

namespace metrisk::testing {

enum class Kind { TwoSided, SingleUpper, SingleLower };

/// Offsets in nominal units, % in percent.
struct Entry {
    Kind kind = Kind::TwoSided;
    double mode = 10;
    double upperOffset = 0.5;
    double lowerOffset = 0.5;
    double pctInTol = 95;
    double mteOffset = 0.125;
    double mtePctInTol = 95;
    bool hasPhysicalLimit = false;
    double physicalLimit = 0;
};

inline void enter(Analysis& r, const Entry& e) {
    r.SU_Mode = r.MTE_Mode = e.mode;
    r.SU_UpperOffset = e.upperOffset;
    r.SU_LowerOffset = e.lowerOffset;
    r.SU_UpperLimit = e.mode + e.upperOffset;
    r.SU_LowerLimit = e.mode - e.lowerOffset;
    r.SU_PctInTol = e.pctInTol;
    r.OptTwoSided = e.kind == Kind::TwoSided;
    r.OptSingleUpper = e.kind == Kind::SingleUpper;
    r.OptSingleLower = e.kind == Kind::SingleLower;
    r.PhysLimitRequired = e.hasPhysicalLimit;
    r.PhysicalLimitEntered = e.hasPhysicalLimit;
    r.PhysicalLimit = e.physicalLimit;
    r.MTE_Offset = r.MTE_FixedOffset = e.mteOffset;
    r.MTE_UpperLimit = e.mode + e.mteOffset;
    r.MTE_LowerLimit = e.mode - e.mteOffset;
    r.MTE_PctInTol = e.mtePctInTol;
}

inline Entry twoSided(double up, double down, double pct, double mteOffset = 0.125, double mtePct = 95) {
    return {.upperOffset = up,
            .lowerOffset = down,
            .pctInTol = pct,
            .mteOffset = mteOffset,
            .mtePctInTol = mtePct};
}

inline Entry single(Kind kind, double pct) {
    return {.kind = kind, .pctInTol = pct};
}

inline Entry withPhysicalLimit(Kind kind, double mode, double offset, double limit, double pct) {
    Entry e;
    e.kind = kind;
    e.mode = mode;
    e.upperOffset = e.lowerOffset = offset;
    e.mteOffset = offset / 4;
    e.pctInTol = pct;
    e.hasPhysicalLimit = true;
    e.physicalLimit = limit;
    return e;
}

} // namespace metrisk::testing
