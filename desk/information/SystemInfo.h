// What the program runs on, and what it is made of.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

struct Session;

/// Empty, or 0, where the system does not tell.
struct SystemInfo {
    std::string system;   // name and version of the distribution
    std::string kernel;   // name, release and machine
    std::string computer; // name in the network
    std::string user;     // login name
    unsigned cores = 0;   // that this program may run on

    static SystemInfo now();
};

/// The name that a distribution gives itself in its os-release file; empty if there is none.
std::string distributionName(std::string_view osRelease);

/// One line of the information screen; `number` is the fact as a number where it is one, memory in bytes.
struct SystemFact {
    std::string name;
    std::string text;
    std::optional<double> number{};
};

/// Everything about program, system, memory and paths. `toolkit` names what shows the program, which core
/// does not know.
std::vector<SystemFact> systemFacts(const Session& session, const std::string& toolkit);

/// "NAME: TEXT" on lines.
std::string factsText(const std::vector<SystemFact>& facts);

} // namespace metrisk
