// All rows of an input, by several threads, in the order of the input.
#pragma once

#include "rows/RowSource.h"

#include <atomic>
#include <functional>

namespace metrisk {

struct RowRun {
    unsigned threads = 0; // 0: one a core
    /// Gets the output of one block after the other, and what has been counted so far; false ends the run.
    std::function<bool(std::string_view bytes, const RowCounts& counts)> put;
    const std::atomic<bool>* stop = nullptr; // asked between blocks
};

/// What was counted. Bytes do not depend on the number of threads. Raises ReadFailure, and whatever `put`
/// does, after what came before has been put.
RowCounts runRows(RowSource& source, const RowTable& table, const RowRun& run);

/// The records of one block.
void processBlock(std::string_view block, const RowTable& table, RowScratch& scratch, std::string& out,
                  RowCounts& counts);

} // namespace metrisk
