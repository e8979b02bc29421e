// Replaces a file as a whole: a write that fails half way leaves the old file as it was.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

/// Asked before every operation on the disk that can fail; false lets that operation fail.
using DiskProbe = std::function<bool()>;

/// Writes the content to a new file beside `path` and renames it onto `path`. Follows a symbolic
/// link, keeps the permissions and, as far as the system allows, the owner and group of an existing
/// file, and refuses to replace one that may not be written or is no regular file. On false the old file
/// is untouched and nothing is left behind. The first write into a folder removes the temporary files
/// that killed processes have left there.
bool replaceFile(const std::filesystem::path& path, std::string_view content, const DiskProbe& probe = {});

/// From now on a signal that ends the process removes its temporary files first. For programs without a
/// handling of signals of their own.
void removeTemporariesOnSignals();

/// The first `most` bytes of a regular file, or all of a smaller one; nothing if it cannot be read.
std::optional<std::string> readFileStart(const std::filesystem::path& path, std::size_t most);

/// The whole content of a regular file of at most `largest` bytes; nothing if it cannot be read.
std::optional<std::string> readWholeFile(const std::filesystem::path& path, std::size_t largest);

} // namespace metrisk
