// What a command reads besides analyses: whole files, pipes, and the standard input under the name "-".
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace metrisk {

inline constexpr const char* standardStream = "-";

/// A file cannot be read: which, and why. Ends a command that can do nothing without it.
struct Unreadable : std::runtime_error {
    Unreadable(std::string name, const std::string& cause)
        : std::runtime_error(cause), file(std::move(name)) {}

    std::string file;
};

/// All of it. Raises Unreadable, also where it is larger.
std::string readInput(const std::string& path, std::size_t largest);

} // namespace metrisk
