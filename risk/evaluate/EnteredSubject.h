// Entries of the subject parameter in the form that fits and rules read.
#pragma once

#include "record/ParameterGroups.h"
#include "risk/TestEntries.h"

namespace metrisk {

/// Nothing of it is fitted.
SubjectParameter enteredSubject(const SubjectEntry& entry);

} // namespace metrisk
