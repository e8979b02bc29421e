// The files used last, kept in the settings.
#pragma once

#include <string>
#include <vector>

namespace metrisk {

class Settings;

inline constexpr int mostRecentFiles = 8;

/// Newest first.
std::vector<std::string> recentFiles(const Settings& settings);
/// Puts the file first.
void addRecentFile(Settings& settings, const std::string& path);

/// A file that is gone.
void forgetRecentFile(Settings& settings, const std::string& path);

} // namespace metrisk
