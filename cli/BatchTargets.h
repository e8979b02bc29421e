// The files that a command reads, and the file that it writes for each.
#pragma once

#include "cli/Arguments.h"
#include "cli/Output.h"

#include <functional>
#include <string>
#include <vector>

namespace metrisk::cli {

struct BatchTargets {
    std::vector<std::string> files;
    std::string path;   // of the only output
    std::string folder; // of many, each named after its file
    unsigned threads = 0;
    std::string end; // of the names of outputs in a folder, with its dot

    /// Adds FILE, -o, --out-dir and --threads. The command must keep this where it is. `name` says what is
    /// written.
    void addTo(const Arguments& command, const std::string& name);

    /// What is wrong with the options together; empty if they name a target for each file and no target
    /// twice.
    std::string wrong() const;
    std::string target(std::size_t file) const;

    /// Runs the job for each file on all cores, unless something is wrong, and puts what it says in the
    /// files' order. The exit status.
    int run(const char* command,
            const std::function<Output(const std::string& file, const std::string& target)>& job) const;
};

} // namespace metrisk::cli
