// Runs a job for each item on all cores and emits the outputs in the items' order.
#pragma once

#include "cli/Output.h"

#include <cstddef>
#include <functional>

namespace metrisk::cli {

/// `job` is called from several threads, once an item. Outputs wait for their turn in a window of
/// fixed size, so that memory does not grow with the number of items. `progress` is called with the
/// number of items emitted. Returns the highest status of all outputs, or `refused` at least when
/// stdout could not take the results. `threads` 0 means all cores.
int runOrdered(std::size_t items, unsigned threads, const std::function<Output(std::size_t)>& job,
               const std::function<void(std::size_t)>& progress);

} // namespace metrisk::cli
