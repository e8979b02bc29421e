// The script that completes command lines in bash, from a table of what there is to complete.
#pragma once

#include <string>
#include <vector>

namespace metrisk::cli {

enum class ValueKind { Any, Path, Folder };

struct CompletedOption {
    std::vector<std::string> names{}; // with their dashes
    bool hasValue = false;
    ValueKind kind = ValueKind::Any;
    std::string words{}; // the values there are, with blanks between; empty where they are free
};

struct CompletedCommand {
    std::string path;                    // "units list"; empty for the program itself
    std::vector<std::string> commands{}; // below it
    std::vector<CompletedOption> options{};
    bool takesPaths = false; // as arguments without a name
};

std::string completionScript(const std::vector<CompletedCommand>& commands);

} // namespace metrisk::cli
