#include "cli/BatchTargets.h"

#include "cli/OrderedBatch.h"

#include <filesystem>
#include <set>

namespace metrisk::cli {

namespace fs = std::filesystem;

void BatchTargets::addTo(const Arguments& command, const std::string& name) {
    command.texts("FILE", files, "Analysis files").shownAs("...").required();
    const Argument one = command.text("-o,--output", path, "File to write").shownAs(name);
    command.text("--out-dir", folder, "Folder to write to, under the names of the files")
        .shownAs("FOLDER")
        .existingFolder()
        .excludes(one);
    command.count("--threads", threads, "Threads to use; 0, the default, means one a core").shownAs("N");
}

std::string BatchTargets::wrong() const {
    if (path.empty() && folder.empty()) return "-o or --out-dir is required";
    if (!path.empty() && files.size() > 1) return "-o takes one file; use --out-dir for many";
    std::set<std::string> seen;
    for (std::size_t i = 0; i < files.size(); ++i)
        if (!seen.insert(target(i)).second) return target(i) + " would be written twice";
    return "";
}

std::string BatchTargets::target(std::size_t file) const {
    if (!path.empty()) return path;
    return (fs::path(folder) / fs::path(files[file]).filename().replace_extension(end)).string();
}

int BatchTargets::run(const char* command,
                      const std::function<Output(const std::string&, const std::string&)>& job) const {
    if (const std::string what = wrong(); !what.empty())
        return finish({.diagnostics = diagnosticLine(command, what), .status = wrongUsage});
    Outlet outlet(files.size());
    runOrdered(
        files.size(), threads,
        [&](std::size_t i) -> Output {
            try {
                return job(files[i], target(i));
            } catch (const std::exception& fault) { // memory: the files behind it may need less
                return {.diagnostics = diagnosticLine(files[i], fault.what()), .status = refused};
            }
        },
        [&](const Output& output) { outlet.put(output); });
    return outlet.status();
}

} // namespace metrisk::cli
