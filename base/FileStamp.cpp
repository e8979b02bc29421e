#include "base/FileStamp.h"

#include <sys/stat.h>

namespace metrisk {

std::optional<FileStamp> stampOf(const std::filesystem::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    constexpr std::int64_t aSecond = 1000000000;
    return FileStamp{static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino),
                     static_cast<std::int64_t>(status.st_size),
                     status.st_mtim.tv_sec * aSecond + status.st_mtim.tv_nsec};
}

bool changedSince(const std::optional<FileStamp>& stamp, const std::filesystem::path& path) {
    if (!stamp) return false;
    const std::optional<FileStamp> now = stampOf(path);
    return now && *now != *stamp;
}

} // namespace metrisk
