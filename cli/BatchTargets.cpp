#include "cli/BatchTargets.h"

#include "cli/OrderedBatch.h"
#include "cli/Output.h"
#include "cli/OutputFile.h"
#include "unattended/Input.h"
#include "unattended/Json.h"

#include <filesystem>
#include <set>

namespace metrisk::cli {

namespace fs = std::filesystem;

void BatchTargets::addTo(const Arguments& command, const std::string& name) {
    list.addTo(command, "Analysis files");
    const Argument one = command.text("-o,--output", path, "File to write").shownAs(name).isPath();
    command.text("--out-dir", folder, "Folder to write to, under the names of the files")
        .shownAs("FOLDER")
        .existingFolder()
        .excludes(one);
    addForceOption(command, force);
    command.flag("--json", json, "Print one JSON object per file, each on one line");
    command.count("--threads", threads, "Threads to use; 0, the default, means one a core and at least eight")
        .shownAs("N");
}

std::string BatchTargets::wrong() const {
    if (path.empty() && folder.empty()) return "-o or --out-dir is required";
    if (!path.empty() && list.files.size() > 1) return "-o takes one file; use --out-dir for many";
    if (path == standardStream && json) return "-o - and --json both take the standard output";
    const std::vector<std::string>& files = list.files;
    std::set<std::string> seen;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (!seen.insert(target(i)).second) return target(i) + " would be written twice";
        if (const std::string fault = targetFault(target(i), force, files); !fault.empty()) return fault;
    }
    return "";
}

std::string BatchTargets::target(std::size_t file) const {
    if (!path.empty()) return path;
    return (fs::path(folder) / fs::path(list.files[file]).filename().replace_extension(end)).string();
}

Output BatchTargets::write(Workplace& workplace, const std::string& file, const std::string& target,
                           const Job& job) const {
    AnalysisRun run(workplace);
    Output output;
    output.status = unreadable;
    try {
        if (run.open(file)) {
            output.status = refused;
            if (const auto bytes = job(run, target))
                if (writeTarget(target, force, *bytes, run.ui, output)) output.status = allDone;
        }
    } catch (const std::exception& fault) { // memory: the files behind it may need less
        run.ui.note(faultText(fault));
        output.status = refused;
    }
    output.diagnostics = diagnosticLines(file, run.ui.messages());
    if (json) {
        Json object = run.result(file, statusWord(output.status, "written"));
        object["output"] = output.status == allDone ? Json(target) : Json();
        output.results = jsonLine(object);
    }
    return output;
}

int BatchTargets::run(const char* command, Workplace& workplace, const Job& job) const {
    if (const std::string what = wrong(); !what.empty())
        return finish(refusal("", std::string(command) + ": " + what, wrongUsage, json));
    const std::vector<std::string>& files = list.files;
    Outlet outlet(files.size());
    runOrdered(
        files.size(), threadsFor(threads, true),
        [&](std::size_t i) { return write(workplace, files[i], target(i), job); },
        [&](const Output& output) { outlet.put(output); });
    return outlet.status();
}

} // namespace metrisk::cli
