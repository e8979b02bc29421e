#if defined(__AVX2__)
#define METRISK_LANES 4
#include "numerics/mathlib/ArrayLoops.inl"

namespace metrisk {

const ArrayKernels wideKernels = kernels;

} // namespace metrisk
#endif
