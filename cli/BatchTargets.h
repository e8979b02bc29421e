// The files that a command reads, and the file that it writes for each.
#pragma once

#include "cli/FileList.h"
#include "cli/Output.h"
#include "unattended/AnalysisRun.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace metrisk::cli {

struct BatchTargets {
    FileList list;
    std::string path;   // of the only output
    std::string folder; // of many, each named after its file
    unsigned threads = 0;
    bool force = false;
    bool json = false;
    std::string end; // of the names of outputs in a folder, with its dot

    /// Adds FILE and --files-from, -o, --out-dir, --force, --json and --threads. The command must keep this
    /// where it is. `name` says what is written.
    void addTo(const Arguments& command, const std::string& name);

    /// What is wrong with the options together; empty if they name a target for each file, and none twice,
    /// that is read or that exists.
    std::string wrong() const;
    std::string target(std::size_t file) const;

    /// The bytes of a file's target; none if the analysis is refused, which has been told.
    using Job = std::function<std::optional<std::string>(AnalysisRun& run, const std::string& target)>;

    /// Opens each file, runs the job and writes, on all cores, unless something is wrong; puts what was said
    /// in the files' order. The exit status.
    int run(const char* command, Workplace& workplace, const Job& job) const;

  private:
    Output write(Workplace& workplace, const std::string& file, const std::string& target,
                 const Job& job) const;
};

} // namespace metrisk::cli
