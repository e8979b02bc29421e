// How much memory the computer has, and how much of it this program holds.
#pragma once

#include <string_view>

namespace metrisk {

/// Bytes; 0 where the system does not tell.
struct MemoryStatus {
    double total = 0;
    double available = 0; // without taking any from other programs
    double swapTotal = 0;
    double swapFree = 0;
    double program = 0; // resident

    static MemoryStatus now();
    /// From the texts in which the kernel tells it, of the computer and of a process.
    static MemoryStatus read(std::string_view meminfo, std::string_view processStatus);
};

} // namespace metrisk
