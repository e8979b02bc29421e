// Sessions with ready entries and nobody before them.
#pragma once

#include "tests/support/Cases.h"
#include "tests/support/SilentSession.h"

namespace metrisk::bench {

using testing::Entry;

inline Entry twoSided(double pct) {
    return testing::twoSided(0.5, 0.5, pct);
}
inline Entry unequal(double pct) {
    return testing::twoSided(1, 0.5, pct);
}
inline Entry singleUpper(double pct) {
    return testing::single(testing::Kind::SingleUpper, pct);
}
inline Entry physicalLimitAtMode(double pct) {
    return testing::withPhysicalLimit(testing::Kind::SingleUpper, 10, 0.5, 10, pct);
}

struct BenchSession : testing::SilentSession {
    Analysis& record = session.record;

    explicit BenchSession(const Entry& entry) {
        enter(record, entry);
        record.AckPhysLimitHigh = record.Ack100Pct = true;
    }
};

} // namespace metrisk::bench
