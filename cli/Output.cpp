#include "cli/Output.h"

#include <algorithm>
#include <cstdio>

namespace metrisk::cli {

std::string diagnosticLines(const std::string& name, const std::vector<Message>& messages) {
    std::string lines;
    for (const Message& message : messages) {
        std::string text = message.text;
        std::replace(text.begin(), text.end(), '\n', ' ');
        lines += name + ": " + message.title + ": " + text + " [" + message.answer + "]\n";
    }
    return lines;
}

bool emit(const Output& output) {
    std::fwrite(output.diagnostics.data(), 1, output.diagnostics.size(), stderr);
    const bool written =
        std::fwrite(output.results.data(), 1, output.results.size(), stdout) == output.results.size();
    return written && std::fflush(stdout) == 0;
}

} // namespace metrisk::cli
