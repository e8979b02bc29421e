// The subject parameter of a record as its last fit left it.
#pragma once

#include "numerics/Distribution.h"

namespace metrisk {

struct SubjectParameter;

SubjectBias subjectBiasOf(const SubjectParameter& subject);

} // namespace metrisk
