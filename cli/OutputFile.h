// A file that a command writes: never over another one without --force, never over what it reads.
#pragma once

#include "cli/Arguments.h"
#include "cli/Output.h"

#include <string>
#include <string_view>
#include <vector>

namespace metrisk::cli {

/// What forbids to write to `path`, before any work is done for it; empty if nothing does. "-" is the
/// standard output.
std::string targetFault(const std::string& path, bool force, const std::vector<std::string>& inputs);

/// Writes a file as a whole, or puts the bytes among the results for "-". False if it could not; why is among
/// the messages.
bool writeTarget(const std::string& path, bool force, std::string_view bytes, UnattendedInteraction& ui,
                 Output& output);

/// Adds --force for a file that is written.
Argument addForceOption(const Arguments& command, bool& force);

} // namespace metrisk::cli
