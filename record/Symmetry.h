// Whether a two-sided tolerance counts as symmetric about the mode.
#pragma once

namespace metrisk {

struct SubjectParameter;

/// True for a two-sided tolerance whose offsets differ by at most 1e-7 of their mean, where the models of
/// equal and of unequal offsets agree to 6e-8, or by what rounding leaves of offsets that were taken from
/// the limits. Does not depend on the unit of measurement.
bool isSymmetric(const SubjectParameter& subject);

} // namespace metrisk
