// Other programs: how one is started, and which one a desktop opens a file with.
#pragma once

#include <string>
#include <vector>

namespace metrisk {

/// A program that is to be started, with its arguments as they are: there is no shell in between.
struct Launch {
    std::string program; // a path
    std::vector<std::string> arguments{};
    std::string folder{}; // in which it runs

    friend bool operator==(const Launch&, const Launch&) = default;
};

/// What a kind of files is opened with.
struct Association {
    std::string entry; // path of the program's desktop entry; empty if the desktop knows none
    std::string type;  // the MIME type that it stands for
};

} // namespace metrisk
