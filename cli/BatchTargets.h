// The files that a command reads, and the file that it writes for each.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace metrisk::cli {

struct BatchTargets {
    std::vector<std::string> files;
    std::string path;   // of the only output
    std::string folder; // of many, each named after its file
    unsigned threads = 0;

    /// Adds FILE, -o, --out-dir and --threads. The command must keep this where it is. `end` with its dot.
    void addTo(CLI::App& command, const char* end);

    /// What is wrong with the options together; empty if they name a target for each file and no target
    /// twice.
    std::string wrong() const;
    std::string target(std::size_t file) const;

  private:
    const char* end_ = "";
};

} // namespace metrisk::cli
