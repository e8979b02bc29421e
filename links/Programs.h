// Programs on the disk: whether there is one, and how it is started.
#pragma once

#include "base/Launch.h"

#include <optional>
#include <string>

namespace metrisk {

/// A regular file that the user may execute.
bool isExecutable(const std::string& path);

/// The program of that path, or of that name on the search path; empty if there is none.
std::string findProgram(const std::string& name);

/// How to start the program of that path or, if it is a desktop entry, the one that the entry stands for,
/// with a document if one is given. None if it cannot be started, or only within a terminal.
std::optional<Launch> launchOf(const std::string& program, const std::string& document = "");

/// What is kept of a program that the desktop opens files with: its own path, or that of its entry if the
/// entry says more about its start than which program it is. Empty if it cannot be started.
std::string programOfEntry(const std::string& entry);

} // namespace metrisk
