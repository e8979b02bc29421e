// The time at which a reliability model has fallen to a given value.
#pragma once

#include "reliability/ReliabilityModels.h"

namespace metrisk {

struct Message;

/// There is no such time, for the reason told. The message is a constant.
struct IntervalRefusal {
    const Message* message;
};

/// The earliest time at or after 0 with R(t) = eop, a fraction; in the unit of the coefficients. That of
/// model 4 comes from a rate of four decimals. A time at which R differs from eop by more than 1e-4 is none.
/// Raises IntervalRefusal, also for numeric faults.
double timeForReliability(int model, const Coefficients& theta, double eop);

extern const Message illDefinedReliability; // coefficients absent or of no use
extern const Message noInterval;

} // namespace metrisk
