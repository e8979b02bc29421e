#include "cli/OutputFile.h"

#include "base/AtomicFile.h"
#include "cli/Output.h"
#include "unattended/Input.h"

#include <algorithm>
#include <filesystem>

namespace metrisk::cli {

namespace fs = std::filesystem;

std::string targetFault(const std::string& path, bool force, const std::vector<std::string>& inputs) {
    std::error_code none;
    if (path == standardStream || !fs::exists(path, none)) return {};
    if (std::ranges::any_of(inputs, [&](const auto& input) { return fs::equivalent(path, input, none); }))
        return path + " is what is read and is not written over";
    return force ? "" : path + " exists; use --force to replace it";
}

bool writeTarget(const std::string& path, bool force, std::string_view bytes, UnattendedInteraction& ui,
                 Output& output) {
    if (path == standardStream) {
        output.results += bytes;
        return true;
    }
    const auto error = writeFile(path, bytes, force ? Existing::Replace : Existing::Refuse);
    if (error) ui.note(path + " cannot be written: " + error.message());
    return !error;
}

Argument addForceOption(const Arguments& command, bool& force) {
    return command.flag("--force", force, "Replace an existing file");
}

} // namespace metrisk::cli
