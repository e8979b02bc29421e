// What a command has to say: results for stdout, diagnostics for stderr, and its exit status.
#pragma once

#include "cli/ConsoleInteraction.h"

#include <string>
#include <vector>

namespace metrisk::cli {

enum ExitStatus { allDone = 0, refused = 1, wrongUsage = 2, unreadable = 3 };

struct Output {
    std::string results;
    std::string diagnostics;
    int status = allDone;
};

/// One line of diagnostics for each message, "NAME: TITLE: TEXT [ANSWER]", line breaks as blanks.
std::string diagnosticLines(const std::string& name, const std::vector<Message>& messages);

/// Writes both streams; false when stdout could not take the results.
bool emit(const Output& output);

} // namespace metrisk::cli
