// Runs a job for each item on all cores and puts the outputs in the items' order.
#pragma once

#include "cli/Output.h"

#include <cstddef>
#include <functional>

namespace metrisk::cli {

/// A job that writes a file waits for the disk, and disks write several files at one commit.
inline constexpr unsigned writingThreads = 8;

/// Those asked for; for 0 one a core, and at least so many where each job writes a file.
unsigned threadsFor(unsigned asked, bool writing);

/// `job` is called from several threads, once an item. Outputs wait for their turn in a window of
/// fixed size, so that memory does not grow with the number of items. `put` gets them one at a time.
/// `threads` 0 means all cores.
void runOrdered(std::size_t items, unsigned threads, const std::function<Output(std::size_t)>& job,
                const std::function<void(const Output&)>& put);

} // namespace metrisk::cli
