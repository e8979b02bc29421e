#define METRISK_LANES 2
#include "numerics/mathlib/ArrayLoops.inl"

namespace metrisk {

const ArrayKernels narrowKernels = kernels;

} // namespace metrisk
