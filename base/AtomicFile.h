// Replaces a file as a whole: a write that fails half way leaves the old file as it was.
#pragma once

#include "base/TemporaryFile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace metrisk {

/// Writes the content to a temporary file beside `path` (see there) which becomes it as a whole. The error
/// tells why it did not; the old file is untouched then and nothing is left behind. `holds` is asked last,
/// when the content has reached the disk.
std::error_code writeFile(const std::filesystem::path& path, std::string_view content,
                          Existing existing = Existing::Replace, const DiskProbe& probe = {},
                          const Condition& holds = {});

/// The same where nobody asks why.
bool replaceFile(const std::filesystem::path& path, std::string_view content, const DiskProbe& probe = {});

/// The first `most` bytes of a regular file, or all of a smaller one; nothing if it cannot be read.
std::optional<std::string> readFileStart(const std::filesystem::path& path, std::size_t most);

/// The whole content of a regular file of at most `largest` bytes; nothing if it cannot be read.
std::optional<std::string> readWholeFile(const std::filesystem::path& path, std::size_t largest);

} // namespace metrisk
