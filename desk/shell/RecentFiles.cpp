#include "desk/shell/RecentFiles.h"

#include "base/Settings.h"

namespace metrisk {

namespace {

constexpr const char* section = "Recent Files";

std::string key(int i) {
    return "File" + std::to_string(i);
}

void write(Settings& settings, const std::vector<std::string>& files) {
    std::vector<SettingValue> values;
    for (int i = 1; i <= mostRecentFiles; ++i) {
        const auto at = static_cast<std::size_t>(i - 1);
        const std::string value = at < files.size() ? files[at] : "";
        if (settings.ReadSetting(section, key(i), "", wholeValue) != value)
            values.push_back({section, key(i), value});
    }
    if (!values.empty()) settings.write(values);
}

} // namespace

std::vector<std::string> recentFiles(const Settings& settings) {
    std::vector<std::string> files;
    for (int i = 1; i <= mostRecentFiles; ++i) {
        std::string file = settings.ReadSetting(section, key(i), "", wholeValue);
        if (!file.empty()) files.push_back(std::move(file));
    }
    return files;
}

void addRecentFile(Settings& settings, const std::string& path) {
    std::vector<std::string> files = recentFiles(settings);
    std::erase(files, path);
    files.insert(files.begin(), path);
    write(settings, files);
}

void forgetRecentFile(Settings& settings, const std::string& path) {
    std::vector<std::string> files = recentFiles(settings);
    if (std::erase(files, path) > 0) write(settings, files);
}

} // namespace metrisk
