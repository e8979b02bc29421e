// What tells that a file on the disk is still the one that was read or written.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace metrisk {

struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t nanoseconds = 0; // of its last change of content, since 1970

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// None where there is no such file.
std::optional<FileStamp> stampOf(const std::filesystem::path& path);

/// There is a file of that name, and it is another than the stamp tells of. Without a stamp nothing is known.
bool changedSince(const std::optional<FileStamp>& stamp, const std::filesystem::path& path);

} // namespace metrisk
