#include "desk/information/MemoryStatus.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace metrisk {

namespace {

constexpr double kibibyte = 1024;

/// "NAME:   123 kB" on a line of its own.
double bytesOf(std::string_view text, std::string_view name) {
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string line(text.substr(0, end));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
        if (line.starts_with(name) && line.size() > name.size() && line[name.size()] == ':')
            return std::strtod(line.c_str() + name.size() + 1, nullptr) * kibibyte;
    }
    return 0;
}

/// Files of the kernel have no size of their own.
std::string contentOf(const char* path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace

MemoryStatus MemoryStatus::now() {
    return read(contentOf("/proc/meminfo"), contentOf("/proc/self/status"));
}

MemoryStatus MemoryStatus::read(std::string_view meminfo, std::string_view processStatus) {
    return {.total = bytesOf(meminfo, "MemTotal"),
            .available = bytesOf(meminfo, "MemAvailable"),
            .swapTotal = bytesOf(meminfo, "SwapTotal"),
            .swapFree = bytesOf(meminfo, "SwapFree"),
            .program = bytesOf(processStatus, "VmRSS")};
}

} // namespace metrisk
