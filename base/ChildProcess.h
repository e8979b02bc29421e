// Work on input that nobody vouches for, in a process of its own that may be lost.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace metrisk {

struct ChildLimits {
    std::chrono::milliseconds time; // of the clock and of the processor (the latter in whole seconds)
    std::size_t memory;             // bytes beyond what the process has mapped already
    std::size_t output;             // bytes
};

/// Forks, runs `work` under the limits and gives what it wrote to the descriptor; all of it must be
/// distrusted. A child that died or was ended gives what came before, so the output must tell by itself where
/// it is whole. The child has no other descriptor, no output to the terminal and none of the program's signal
/// handlers. Where the system has no process to give, the output is empty.
std::string outputOfChild(const ChildLimits& limits, const std::function<void(int descriptor)>& work);

} // namespace metrisk
