// Settings in a private profile file of the user.
#pragma once

#include "base/AtomicFile.h"
#include "base/ProfileText.h"
#include "base/Settings.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <tuple>

namespace metrisk {

/// Settings that come from elsewhere than a file of their own.
struct SettingsContent {
    std::string text;
};

/// Every read sees the file as it is on the disk at that moment, every write goes there at once and
/// leaves all other lines as they are. A file that exists but cannot be read is never written over.
/// May be shared by threads.
class SettingsFile final : public Settings {
  public:
    explicit SettingsFile(std::filesystem::path path, DiskProbe probe = {});
    /// Has no file; what is written is only known to this.
    explicit SettingsFile(const SettingsContent& content);

    /// Cut to `length` characters. A value that is no UTF-8 is taken as Windows-1252.
    std::string ReadSetting(std::string_view section, std::string_view key, std::string_view defaultText,
                            int length) const override;
    void write(std::span<const SettingValue> values) override;

    const std::filesystem::path& path() const { return path_; }

  private:
    /// Tells one state of the file from another: inode, size, seconds and nanoseconds of change.
    using Stamp = std::tuple<std::uint64_t, std::int64_t, std::int64_t, std::int64_t>;

    Stamp stamp() const;
    void refresh() const;

    std::filesystem::path path_;
    DiskProbe probe_;
    mutable std::mutex mutex_;
    mutable Stamp read_{};
    mutable std::map<ProfileKey, std::string> values_;
    std::map<ProfileKey, std::string> unwritten_;
};

/// metrisk/Metrisk16.ini in the configuration folder of the user.
std::filesystem::path defaultSettingsPath();

/// Writes a first settings file with a readable colour scheme unless there is one already. False if
/// none could be written.
bool installStartingSettings(const std::filesystem::path& path);

} // namespace metrisk
