// The files that a command takes: those that it names, and those of a list.
#pragma once

#include "cli/Arguments.h"

#include <string>
#include <vector>

namespace metrisk::cli {

struct FileList {
    std::vector<std::string> files; // once the list has been read, its names behind those of the command
    std::string from;               // a file or "-"; empty where there is no list
    bool null = false;

    /// Adds FILE, --files-from and --null. The command must keep this where it is. `about` tells of FILE.
    void addTo(const Arguments& command, const char* about);
    /// For then(): raises WrongUsage where there is neither a name nor a list.
    void check() const;
    /// Appends the names of the list, and tells where there is no name at all; empty lines name nothing.
    /// Lines end as on any system, and a name that ends with CR needs a NUL behind it. Raises Unreadable.
    void read();
};

} // namespace metrisk::cli
