// Sessions with ready entries and nobody before them.
#pragma once

#include "tests/support/SilentSession.h"

namespace metrisk::bench {

/// Offsets in nominal units, in percent in tolerance.
struct Entry {
    double upperOffset = 0.5;
    double lowerOffset = 0.5;
    double pctInTol = 90;
    bool singleUpper = false;
    bool physicalLimitAtMode = false;
};

inline Entry twoSided(double pct) {
    return {.pctInTol = pct};
}
inline Entry unequal(double pct) {
    return {.upperOffset = 1, .pctInTol = pct};
}
inline Entry singleUpper(double pct) {
    return {.pctInTol = pct, .singleUpper = true};
}
inline Entry physicalLimitAtMode(double pct) {
    return {.pctInTol = pct, .singleUpper = true, .physicalLimitAtMode = true};
}

struct BenchSession : testing::SilentSession {
    Analysis& record = session.record;

    explicit BenchSession(const Entry& e) {
        Analysis& r = record;
        r.SU_Mode = r.MTE_Mode = 10;
        r.SU_UpperOffset = e.upperOffset;
        r.SU_LowerOffset = e.lowerOffset;
        r.SU_UpperLimit = 10 + e.upperOffset;
        r.SU_LowerLimit = 10 - e.lowerOffset;
        r.SU_PctInTol = e.pctInTol;
        r.OptTwoSided = !e.singleUpper;
        r.OptSingleUpper = e.singleUpper;
        r.PhysLimitRequired = r.PhysicalLimitEntered = e.physicalLimitAtMode;
        r.PhysicalLimit = e.physicalLimitAtMode ? 10 : 0;
        r.AckPhysLimitHigh = r.Ack100Pct = true;
        r.MTE_Offset = r.MTE_FixedOffset = 0.125;
        r.MTE_UpperLimit = 10.125;
        r.MTE_LowerLimit = 9.875;
        r.MTE_PctInTol = 95;
    }
};

} // namespace metrisk::bench
