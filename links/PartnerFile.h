// The file that another program of the user's has written for this one.
#pragma once

#include <ctime>
#include <filesystem>
#include <optional>
#include <string>

namespace metrisk {

struct PartnerFile {
    enum class State { Missing, Refused, Read } state = State::Missing;
    std::string text{}; // UTF-8
};

/// Refused is a file that is no regular one of the user's own, was reached by a link, is longer than 1 MiB or
/// was written before that time. Never waits, whatever stands there.
PartnerFile readPartnerFile(const std::filesystem::path& path, std::time_t since);

/// Now by the clock that stamps files.
std::time_t fileTime();

/// Writes a file that only the user can read, whole or not at all. False if it cannot be.
bool writePartnerFile(const std::filesystem::path& path, const std::string& text);

} // namespace metrisk
