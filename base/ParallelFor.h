// The same work for many items on all cores.
#pragma once

#include "base/FunctionRef.h"

#include <cstddef>
#include <stop_token>

namespace metrisk {

/// Calls work(first, last) for the items 0 to count - 1 in blocks of at most `block`, on as many threads as
/// there are cores, in any order. `work` must not throw and may run at the same time for different blocks.
/// Returns when all is done, or soon after a stop has been asked for; false in that case.
bool parallelFor(std::size_t count, std::size_t block, FunctionRef<void(std::size_t, std::size_t)> work,
                 const std::stop_token& stop = {});

} // namespace metrisk
