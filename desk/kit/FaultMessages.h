// What the user is told of a fault in a numeric routine, by the routine's name.
#pragma once

#include "base/Real.h"
#include "desk/kit/Message.h"

#include <string>

namespace metrisk {

inline constexpr Message integrationFault{
    "A fatal math error occurred during integration.  Please try a different set of inputs.",
    "Function Integration Error"};

/// The message of the routine that failed; null for one whose faults are silent.
const Message* messageOf(const RuntimeFault& fault);

/// "ROUTINE: what went wrong", for those who look for the cause of a silent fault.
std::string describe(const RuntimeFault& fault);

/// Shows that message, if there is one.
void tellFault(Talk& ui, const RuntimeFault& fault);

} // namespace metrisk
