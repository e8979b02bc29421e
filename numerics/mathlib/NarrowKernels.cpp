#define METRISK_LANES 2
#include "numerics/mathlib/ArrayLoops.h"

namespace metrisk {

const ArrayKernels narrowKernels = kernels;

} // namespace metrisk
