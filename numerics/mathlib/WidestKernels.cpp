#if defined(__AVX512DQ__)
#define METRISK_LANES 8
#include "numerics/mathlib/ArrayLoops.inl"

namespace metrisk {

const ArrayKernels widestKernels = kernels;

} // namespace metrisk
#endif
