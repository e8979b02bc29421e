#include "persistence/SettingsFile.h"

#include "base/Text.h"

#include <cstdlib>
#include <optional>
#include <system_error>
#include <vector>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace metrisk {
namespace {

namespace fs = std::filesystem;

/// No settings file of people is larger; anything beyond is not ours to read.
constexpr std::size_t largestFile = std::size_t{4} * 1024 * 1024;

/// Colours are red + 256 green + 65536 blue.
constexpr std::string_view startingSettings = "[ColorScheme]\r\n"
                                              "BackColor_Metrisk=15790320\r\n"
                                              "ForeColor_Heading=6697728\r\n"
                                              "ForeColor_Labels=2105376\r\n"
                                              "BackColor_InfoBox=16777215\r\n"
                                              "ForeColor_InfoBox=0\r\n"
                                              "BackColor_ResultsBox=14811135\r\n"
                                              "ForeColor_ResultsBox=8388608\r\n"
                                              "BackColor_Labels=15790320\r\n"
                                              "ForeColor_ScreenLabels=2105376\r\n"
                                              "[FontBoldOptions]\r\n"
                                              "FontBold_Heading=1\r\n"
                                              "FontBold_Labels=0\r\n"
                                              "FontBold_InfoBox=0\r\n"
                                              "FontBold_ResultsBox=1\r\n"
                                              "FontBold_TextLabel=0\r\n"
                                              "FontBold_TextBox=0\r\n"
                                              "FontBold_ScreenLabels=0\r\n"
                                              "FontBold_OptionLabels=0\r\n";

fs::path homeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home) return home;
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found && found->pw_dir)
        return found->pw_dir;
    return "/";
}

void createFolderOf(const fs::path& path) {
    std::error_code error;
    if (path.has_parent_path()) fs::create_directories(path.parent_path(), error);
}

} // namespace

SettingsFile::SettingsFile(fs::path path, DiskProbe probe)
    : path_(std::move(path)), probe_(std::move(probe)) {}

SettingsFile::SettingsFile(const SettingsContent& content) : values_(readProfile(content.text)) {}

SettingsFile::Stamp SettingsFile::stamp() const {
    struct stat status {};
    if (::stat(path_.c_str(), &status) != 0) return {};
    return {status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void SettingsFile::refresh() const {
    const Stamp now = stamp();
    if (now == read_) return;
    const auto text = readWholeFile(path_, largestFile);
    values_ = text ? readProfile(*text) : std::map<ProfileKey, std::string>();
    read_ = now;
}

std::string SettingsFile::ReadSetting(std::string_view section, std::string_view key,
                                      std::string_view defaultText, int length) const {
    const std::lock_guard lock(mutex_);
    refresh();
    std::string text(defaultText);
    const ProfileKey name = profileKey(section, key);
    if (const auto newer = unwritten_.find(name); newer != unwritten_.end())
        text = newer->second;
    else if (const auto found = values_.find(name); found != values_.end())
        text = toUtf8(found->second);
    return std::string(firstCharacters(text, static_cast<std::size_t>(length < 0 ? 0 : length)));
}

void SettingsFile::write(std::span<const SettingValue> values) {
    const std::lock_guard lock(mutex_);
    std::error_code error;
    const bool exists = fs::exists(fs::symlink_status(path_, error));
    std::optional<std::string> text = readWholeFile(path_, largestFile);
    bool written = false;
    if (!path_.empty() && (text || !exists)) {
        createFolderOf(path_);
        if (!text) text.emplace();
        for (const SettingValue& v : values) text = withProfileValue(*text, v.section, v.key, v.text);
        written = replaceFile(path_, *text, probe_);
    }
    for (const SettingValue& v : values) {
        if (written)
            unwritten_.erase(profileKey(v.section, v.key));
        else
            unwritten_[profileKey(v.section, v.key)] = v.text;
    }
    if (written) read_ = {};
}

fs::path defaultSettingsPath() {
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    const fs::path folder = configured ? configured : "";
    return (folder.is_absolute() ? folder : homeFolder() / ".config") / "metrisk" / "Metrisk16.ini";
}

bool installStartingSettings(const fs::path& path) {
    std::error_code error;
    if (fs::exists(fs::symlink_status(path, error))) return true;
    createFolderOf(path);
    return replaceFile(path, startingSettings);
}

} // namespace metrisk
